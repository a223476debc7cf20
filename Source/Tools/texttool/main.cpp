// SPDX-License-Identifier: Apache-2.0
//
// texttool reads one document and answers with one result record. It ends with status 0 whatever happens: a
// host reads an empty output as failure.
#include "Platform/AppKit/NSApplication.h"
#include "Platform/Foundation/CrashReporter.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "Platform/Foundation/StringFormat.h"
#include "Source/Tools/texttool/Dispatch.h"
#include "Source/Tools/texttool/Settings.h"

#include <csignal>
#include <new>

int main(int, const char**) {
    installCrashReporter();
    // A reader that has gone and a file at its limit are failed writes, not ends of the process.
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
    NSApplicationLoad();
    try {
        NSUserDefaults::standardUserDefaults().setDomain(kToolDomain);
        dispatchRequest();
    } catch (const NSException& exception) {
        NSLog(stringWithFormat("%@: %@", exception.name(), exception.reason()));
    } catch (const std::bad_alloc&) {
        NSLog(stringWithFormat("%@: there is not enough memory for the record", NSString(NSMallocException)));
    }
    return 0;
}
