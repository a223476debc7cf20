// SPDX-License-Identifier: Apache-2.0
//
// texttool reads one document and answers with one result record. It ends with status 0 whatever happens: a
// host reads an empty output as failure.
#include "Platform/AppKit/NSApplication.h"
#include "Platform/Foundation/CrashReporter.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSFileHandle.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSProcessInfo.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "Platform/Foundation/StringFormat.h"
#include "Source/Tools/texttool/Dispatch.h"
#include "Source/Tools/texttool/Limits.h"
#include "Source/Tools/texttool/Report.h"
#include "Source/Tools/texttool/Settings.h"

#include <csignal>
#include <fcntl.h>
#include <new>
#include <unistd.h>

namespace {

// What the document took has been given back by now. Where even that is not enough a line is all, and it asks
// for none.
void answerWithoutMemory() try { reportWantOfMemory(); } catch (const std::bad_alloc&) {
    writeAll(STDERR_FILENO, "texttool: there is not enough memory for the record\n");
}

// Whether the request names an open file of this process: as the document, or for the record.
bool namesOpenFile(const NSString& text) {
    const std::u16string& path = text.text();
    return path.find(u"/fd/") != path.npos || path.find(u"/dev/std") != path.npos;
}

// In the place of whatever the descriptor was.
void openNothing(int descriptor) {
    const int nothing = open("/dev/null", O_RDWR);
    if (nothing == descriptor) return;
    dup2(nothing, descriptor);
    close(nothing);
}

// What the host left open is none of the document's business.
void closeInheritedFiles() {
    if (fcntl(STDERR_FILENO, F_GETFD) < 0) openNothing(STDERR_FILENO);
    for (const NSString& argument : NSProcessInfo::processInfo().arguments()) {
        if (namesOpenFile(argument)) return;
    }
    if (NSString output = outputPath(); output && namesOpenFile(output)) return;
    close_range(STDERR_FILENO + 1, ~0U, 0);
    openNothing(STDIN_FILENO);
}

} // namespace

int main(int, const char**) {
    installCrashReporter();
    // A reader that has gone and a file at its limit are failed writes, not ends of the process.
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
    closeInheritedFiles();
    if (!outputPath()) NSFileHandle::reserveStandardOutput();
    NSApplicationLoad();
    try {
        NSUserDefaults::standardUserDefaults().setDomain(kToolDomain);
        dispatchRequest();
    } catch (const NSException& exception) {
        NSLog(stringWithFormat("%@: %@", exception.name(), exception.reason()));
    } catch (const std::bad_alloc&) {
        answerWithoutMemory();
    }
    return 0;
}
