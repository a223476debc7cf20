// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/MarkDocument.h"

#include "Platform/Foundation/CrashReporter.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSThread.h"
#include "Platform/Foundation/UnicodeText.h"
#include "Platform/Sandbox/Sandbox.h"

#include <string>

namespace {

class ThreadNameLogger {
public:
    // The body of the parked thread: takes the name and sleeps until the process ends.
    [[noreturn]] static void logString(const NSString& text) {
        NSThread::setName(text);
        renounceAllButSleep();
        for (;;) NSThread::sleepForTimeInterval(60);
    }
};

} // namespace

void markDocument(const NSString& path) {
    // Never freed: the annotation must stand until the very end of the process.
    static std::string& annotation = *new std::string;
    annotation = toUTF8(path.text(), LoneSurrogates::byteUnescaped);
    __crashreporter_info__ = annotation.c_str();
    setLogField("TEXTTOOL_DOCUMENT", path);
    NSThread::detachNewThread(ThreadNameLogger::logString, lastPathComponent(path));
}
