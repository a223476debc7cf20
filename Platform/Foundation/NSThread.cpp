// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSThread.h"

#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/Foundation/UnicodeText.h"

#include <csignal>
#include <cstring>
#include <ctime>
#include <memory>
#include <pthread.h>
#include <sys/prctl.h>

namespace {

constexpr size_t kStackSize = 64 * 1024; // parked threads need next to nothing
constexpr size_t kKernelNameLength = 15;

struct Start {
    void (*body)(const NSString&);
    NSString argument;
};

void* run(void* context) {
    std::unique_ptr<Start> start(static_cast<Start*>(context));
    start->body(start->argument);
    return nullptr;
}

} // namespace

void NSThread::detachNewThread(void (*body)(const NSString&), const NSString& argument) {
    auto start = std::make_unique<Start>(Start{body, argument});
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    pthread_attr_setstacksize(&attributes, kStackSize);
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before); // signals are the business of the threads that were there
    pthread_t thread;
    int error = pthread_create(&thread, &attributes, run, start.get());
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    pthread_attr_destroy(&attributes);
    if (error != 0) {
        NSLog(stringWithFormat("A thread cannot be started: %s", strerror(error)));
        return;
    }
    (void)start.release(); // the thread's now
}

void NSThread::setName(const NSString& name) {
    std::string bytes = toUTF8(name.text(), LoneSurrogates::byteUnescaped);
    size_t length = std::min(bytes.size(), kKernelNameLength);
    while (length > 0 && length < bytes.size() && (static_cast<unsigned char>(bytes[length]) & 0xC0) == 0x80)
        --length;
    prctl(PR_SET_NAME, bytes.substr(0, length).c_str());
}

void NSThread::sleepForTimeInterval(double seconds) {
    timespec rest{};
    rest.tv_sec = time_t(seconds);
    rest.tv_nsec = long((seconds - double(rest.tv_sec)) * 1e9);
    while (nanosleep(&rest, &rest) != 0) {
    }
}
