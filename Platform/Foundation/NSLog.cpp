// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSLog.h"

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/Journal.h"
#include "Platform/Foundation/NSPathUtilities.h"

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string>
#include <sys/time.h>
#include <syslog.h>
#include <unistd.h>

namespace {

std::string linePrefix() {
    timeval now{};
    gettimeofday(&now, nullptr);
    tm local{};
    localtime_r(&now.tv_sec, &local);
    char date[32], zone[16], prefix[160];
    strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", &local);
    strftime(zone, sizeof zone, "%z", &local);
    int length = snprintf(prefix, sizeof prefix, "%s.%06ld%s %s[%d:%d] ", date, long(now.tv_usec), zone,
                          program_invocation_short_name, int(getpid()), int(gettid()));
    return std::string(prefix, length < int(sizeof prefix) ? size_t(length) : sizeof prefix - 1);
}

// Never freed: threads may log to the very end.
std::map<std::string, std::string>& logFields() {
    static auto& fields = *new std::map<std::string, std::string>;
    return fields;
}

void sendToSystem(const std::string& text) {
    std::map<std::string, std::string> entry = {{"MESSAGE", text},
                                                {"PRIORITY", std::to_string(LOG_NOTICE)},
                                                {"SYSLOG_FACILITY", std::to_string(LOG_FAC(LOG_USER))},
                                                {"SYSLOG_IDENTIFIER", program_invocation_short_name}};
    entry.insert(logFields().begin(), logFields().end());
    if (!sendToJournal(entry)) syslog(LOG_USER | LOG_NOTICE, "%s", text.c_str());
}

} // namespace

void NSLog(const NSString& message) {
    std::string text = message.utf8();
    std::string line = linePrefix() + text;
    if (line.back() != '\n') line.push_back('\n');
    writeAll(STDERR_FILENO, line); // a failure could be told to nobody
    sendToSystem(text);
}

void setLogField(const std::string& name, const NSString& value) {
    logFields()[name] = fileSystemRepresentation(value);
}

void NSLogOpen() {
    if (!openJournal()) openlog(nullptr, LOG_NDELAY, LOG_USER);
}
