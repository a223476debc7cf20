// SPDX-License-Identifier: Apache-2.0
//
// Compares text beyond ASCII, with the module that knows it and before it is told where that is.
#include <Platform/Foundation/Module.h>
#include <Platform/Foundation/NSException.h>
#include <ZORFoundation/Source/NSString+ZORBasics.h>

#include <cstdio>

int main(int count, char**) {
    if (count == 1) setModuleFolder(NSString(u"" MODULE_FOLDER));
    try {
        printf("%d\n", zorCaseInsensitiveIsEqual(u"É", NSString(u"é")));
    } catch (const NSException& exception) {
        puts(exception.reason().utf8().c_str());
    }
    return 0;
}
