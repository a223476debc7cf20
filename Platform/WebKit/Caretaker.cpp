// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Caretaker.h"

#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/TemporaryFolder.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace {

constexpr const char* kMark = "TEXTTOOL_CARETAKER";

// Milliseconds: what processes may take to end by themselves, and how long the killed are waited for.
constexpr int kGrace = 250, kPause = 50;
constexpr int kMostRounds = 100;

double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// A new folder in the first of the places where there can be one; "" when there is none.
std::string makeFolder() {
    for (const std::string& place :
         {fileSystemRepresentation(NSTemporaryDirectory()), std::string("/tmp"), std::string("/dev/shm")}) {
        const std::string folder = makeTemporaryFolder(place);
        if (!folder.empty()) return folder;
    }
    return {};
}

// The variable as the environments of processes have it.
std::string markOfThisProcess() {
    const std::string value = std::to_string(getpid()) + "@" + std::to_string(now());
    setenv(kMark, value.c_str(), 1);
    return kMark + ("=" + value) + '\0';
}

// Of processes that have gone, or belong to others, nothing can be read.
bool hasMark(const char* process, const std::string& mark) {
    const FileDescriptor file = openForReading(std::string("/proc/") + process + "/environ");
    std::string environment;
    char piece[4096];
    for (ssize_t count = 0; (count = read(file.get(), piece, sizeof piece)) > 0;)
        environment.append(piece, size_t(count));
    return environment.find(mark) != std::string::npos;
}

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

// The socket of a server that is there no more refuses connections.
void removeDisplay(int number) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/tmp/.X11-unix/X" + std::to_string(number);
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const FileDescriptor connection(socket(AF_UNIX, SOCK_STREAM, 0));
    if (connect(connection.get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 &&
        errno == ECONNREFUSED) {
        unlink(path.c_str());
    }
}

} // namespace

// The caretaker's process.
class Caretaker::Watch {
public:
    Watch(int orders, std::string mark, pid_t owner)
        : orders_(orders), mark_(std::move(mark)), owner_(owner) {}

    [[noreturn]] void run(const std::string& folder) {
        standAside();
        followOrders();
        poll(nullptr, 0, kGrace);
        for (int round = 0; round < kMostRounds && endOthers() > 0; ++round) poll(nullptr, 0, kPause);
        if (current_.display >= 0) removeDisplay(current_.display);
        // The last words of a process may come in between.
        for (int round = 0; round < kMostRounds && !removeFolder(folder); ++round) poll(nullptr, 0, kPause);
        _exit(0);
    }

private:
    // What ends its owner, a signal from the terminal or to the whole group, must not end it; and whoever
    // waits for the end of its owner's output must not wait for it.
    void standAside() const {
        setsid();
        for (int signalNumber : {SIGHUP, SIGINT, SIGTERM, SIGQUIT}) signal(signalNumber, SIG_IGN);
        if (orders_ > 0) close_range(0, unsigned(orders_) - 1, 0);
        close_range(unsigned(orders_) + 1, ~0U, 0);
    }

    // Until the owner has gone.
    void followOrders() {
        for (;;) {
            const double left = std::clamp(current_.endOthersAt - now(), 0.0, 1e6);
            pollfd waited{orders_, POLLIN, 0};
            const int count = poll(&waited, 1, current_.endOthersAt > 0 ? int(left * 1000) + 1 : -1);
            Orders orders;
            const ssize_t length = count > 0 ? read(orders_, &orders, sizeof orders) : -1;
            if (length == 0) return;
            if (length == sizeof orders) current_ = orders;
            if (count == 0 && left == 0) {
                endOthers();
                current_.endOthersAt = 0;
            }
        }
    }

    // How many there were.
    int endOthers() const {
        int count = 0;
        const std::unique_ptr<DIR, CloseDirectory> processes(opendir("/proc"));
        while (const dirent* entry = processes ? readdir(processes.get()) : nullptr) {
            const pid_t process = atoi(entry->d_name);
            if (process <= 0 || process == owner_ || !hasMark(entry->d_name, mark_)) continue;
            kill(process, SIGKILL);
            ++count;
        }
        return count;
    }

    const int orders_;
    const std::string mark_;
    const pid_t owner_;
    Orders current_;
};

Caretaker::Caretaker() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    const FileDescriptor reading(ends[0]);
    pipe_ = FileDescriptor(ends[1]);
    folder_ = makeFolder();
    const std::string mark = markOfThisProcess();
    const pid_t owner = getpid();
    const pid_t child = fork();
    if (child == 0) Watch(reading.get(), mark, owner).run(folder_);
    if (child > 0) return;
    rmdir(folder_.c_str());
    folder_.clear();
}

Caretaker::~Caretaker() { unsetenv(kMark); }

void Caretaker::endOthersAt(const NSDate& date) {
    orders_.endOthersAt = 0;
    if (date) {
        const double left =
            date.timeIntervalSinceReferenceDate() - NSDate::now().timeIntervalSinceReferenceDate();
        orders_.endOthersAt = now() + left;
    }
    send();
}

void Caretaker::mindDisplay(int number) {
    orders_.display = number;
    send();
}

// Orders go through whole, as short as they are. A caretaker that was killed takes none.
void Caretaker::send() {
    if (pipe_ && write(pipe_.get(), &orders_, sizeof orders_) < 0) pipe_ = FileDescriptor();
}
