// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Unicode.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSException.h"

bool isCaseInsensitiveEqual(const NSString& a, const NSString& b) {
    const std::u16string &left = a.text(), &right = b.text();
    if (isASCII(left) && isASCII(right)) return equalIgnoringCase(left, right);
    NSString why;
    static const auto compare = reinterpret_cast<CaseInsensitiveEqual>(moduleEntry("Unicode", &why));
    if (!compare) NSException(NSGenericException, why).raise();
    return compare(left, right);
}
