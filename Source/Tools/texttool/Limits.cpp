// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Limits.h"

#include "Platform/Foundation/AtomicFile.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/NSFileHandle.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/StringFormat.h"
#include "Source/Tools/texttool/Report.h"
#include "Source/Tools/texttool/Settings.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <optional>
#include <sys/resource.h>
#include <sys/sysinfo.h>

namespace {

constexpr uint64_t kMiB = 1 << 20;
constexpr uint64_t kMemoryForAnswer = 64 * kMiB;
constexpr uint64_t kSecondsForAnswer = 2;

struct Limit {
    const char16_t* key;
    int64_t byDefault;

    uint64_t value() const { return uint64_t(std::max<int64_t>(hostInteger(key, byDefault), 0)); }
};

constexpr Limit kMemory{u"LkTextToolMemoryLimit", 4096};
constexpr Limit kProcessorTime{u"LkTextToolProcessorTimeLimit", 120};
constexpr Limit kOutput{u"LkTextToolOutputLimit", 2048};
constexpr Limit kOpenFiles{u"LkTextToolOpenFilesLimit", 1024};
constexpr Limit kProcesses{u"LkTextToolProcessLimit", 256};

NSString& documentPath() {
    static NSString path;
    return path;
}

NSError limitError(const NSString& description, int systemErrno) {
    NSMutableDictionary info;
    if (documentPath()) info.setObject(documentPath(), NSString(NSFilePathErrorKey));
    info.setObject(description, NSString(NSLocalizedDescriptionKey));
    info.setObject(NSError::posix(systemErrno), NSString(NSUnderlyingErrorKey));
    return NSError(NSCocoaErrorDomain, NSFileReadUnknownError, std::move(info).copy());
}

// The soft limit, and as the hard one so much more as an answer may still need. Never more than there was.
void limitTo(__rlimit_resource resource, uint64_t soft, uint64_t more) {
    rlimit both{};
    if (soft == 0 || getrlimit(resource, &both) != 0) return;
    both.rlim_max = std::min<rlim_t>(both.rlim_max, soft + more);
    both.rlim_cur = std::min<rlim_t>(both.rlim_max, soft);
    setrlimit(resource, &both);
}

// What goes out when the time is over, and where to: a signal handler can do no more than write.
struct LastAnswer {
    NSData record;
    std::optional<AtomicFile> file; // or standard output
};

const LastAnswer*& lastAnswer() {
    static const LastAnswer* answer = nullptr;
    return answer;
}

void answerAndEnd(int) {
    if (hasBegunAnswer()) return; // the rest of the time is for its end
    const LastAnswer& answer = *lastAnswer();
    const std::string_view record = answer.record.bytes();
    const int error = answer.file
                          ? answer.file->write(record)
                          : writeAll(NSFileHandle::fileHandleWithStandardOutput().fileDescriptor(), record);
    if (error != 0) writeAll(STDERR_FILENO, "texttool: the time is over, and the record cannot be written\n");
    _exit(0);
}

void limitProcessorTime(uint64_t seconds) {
    if (seconds == 0) return;
    const NSString description =
        stringWithFormat("The document needs more processor time than the limit of %d s.", int(seconds));
    std::optional<AtomicFile> file;
    if (NSString output = outputPath()) file.emplace(fileSystemRepresentation(output));
    // Kept to the very end of the process.
    lastAnswer() = new LastAnswer{errorRecord(limitError(description, ETIMEDOUT)), std::move(file)};
    struct sigaction action {};
    action.sa_handler = answerAndEnd;
    action.sa_flags = SA_RESTART;
    sigaction(SIGXCPU, &action, nullptr);
    limitTo(RLIMIT_CPU, seconds, kSecondsForAnswer);
}

// The system counts all processes of a user, whoever started them, so they are counted in.
void limitProcesses(uint64_t more) {
    struct sysinfo system {};
    if (more != 0 && sysinfo(&system) == 0) limitTo(RLIMIT_NPROC, system.procs + more, 0);
}

} // namespace

void setLimits(const NSString& path) {
    documentPath() = path;
    limitProcessorTime(kProcessorTime.value());
    limitTo(RLIMIT_NOFILE, kOpenFiles.value(), 0);
    limitTo(RLIMIT_FSIZE, kOutput.value() * kMiB, kMiB); // and the record of an error
    limitProcesses(kProcesses.value());
}

void limitMemory() { limitTo(RLIMIT_DATA, kMemory.value() * kMiB, kMemoryForAnswer); }

void reportWantOfMemory() {
    rlimit memory{};
    getrlimit(RLIMIT_DATA, &memory);
    memory.rlim_cur = memory.rlim_max;
    setrlimit(RLIMIT_DATA, &memory);
    reportError(limitError(
        stringWithFormat("The document needs more memory than the limit of %d MiB.", int(kMemory.value())),
        ENOMEM));
}

NSData limitedRecord(const NSData& record) {
    const uint64_t limit = kOutput.value();
    if (limit == 0 || record.bytes().size() <= limit * kMiB) return record;
    return errorRecord(
        limitError(stringWithFormat("The record is larger than the limit of %d MiB.", int(limit)), EFBIG));
}
