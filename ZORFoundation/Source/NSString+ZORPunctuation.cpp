// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORPunctuation.h"

#include "ZORFoundation/Source/NSString+ZORCreation.h"

NSString zorEllipsis() { return zorStringWithCharacter(u'\u2026'); }
NSString zorEnDash() { return zorStringWithCharacter(u'\u2013'); }
NSString zorEmDash() { return zorStringWithCharacter(u'\u2014'); }
NSString zorLeftDoubleQuote() { return zorStringWithCharacter(u'\u201C'); }
NSString zorRightDoubleQuote() { return zorStringWithCharacter(u'\u201D'); }
NSString zorLeftSingleQuote() { return zorStringWithCharacter(u'\u2018'); }
NSString zorRightSingleQuote() { return zorStringWithCharacter(u'\u2019'); }
NSString zorLeftDoubleGuillemet() { return zorStringWithCharacter(u'\u00AB'); }
NSString zorRightDoubleGuillemet() { return zorStringWithCharacter(u'\u00BB'); }
NSString zorLeftSingleGuillemet() { return zorStringWithCharacter(u'\u2039'); }
NSString zorRightSingleGuillemet() { return zorStringWithCharacter(u'\u203A'); }

NSString zorDoubleQuotedString(const NSString& text) {
    return zorLeftDoubleQuote() + text + zorRightDoubleQuote();
}
