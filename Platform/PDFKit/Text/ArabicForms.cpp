// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/Text/ArabicForms.h"

#include <algorithm>
#include <iterator>

namespace {

// Shapes from this one up to the next entry's; without letters where there are gaps.
struct Forms {
    char16_t first;
    std::u16string_view letters;
};

constexpr Forms kForms[] = {
    {0xFB50, u"\u0671"},
    {0xFB52, u"\u067B"},
    {0xFB56, u"\u067E"},
    {0xFB5A, u"\u0680"},
    {0xFB5E, u"\u067A"},
    {0xFB62, u"\u067F"},
    {0xFB66, u"\u0679"},
    {0xFB6A, u"\u06A4"},
    {0xFB6E, u"\u06A6"},
    {0xFB72, u"\u0684"},
    {0xFB76, u"\u0683"},
    {0xFB7A, u"\u0686"},
    {0xFB7E, u"\u0687"},
    {0xFB82, u"\u068D"},
    {0xFB84, u"\u068C"},
    {0xFB86, u"\u068E"},
    {0xFB88, u"\u0688"},
    {0xFB8A, u"\u0698"},
    {0xFB8C, u"\u0691"},
    {0xFB8E, u"\u06A9"},
    {0xFB92, u"\u06AF"},
    {0xFB96, u"\u06B3"},
    {0xFB9A, u"\u06B1"},
    {0xFB9E, u"\u06BA"},
    {0xFBA0, u"\u06BB"},
    {0xFBA4, u"\u06C0"},
    {0xFBA6, u"\u06C1"},
    {0xFBAA, u"\u06BE"},
    {0xFBAE, u"\u06D2"},
    {0xFBB0, u"\u06D3"},
    {0xFBB2, u""},
    {0xFBFC, u"\u06CC"},
    {0xFC00, u""},
    {0xFE70, u"\u064B"},
    {0xFE72, u"\u064C"},
    {0xFE73, u""},
    {0xFE74, u"\u064D"},
    {0xFE75, u""},
    {0xFE76, u"\u064E"},
    {0xFE78, u"\u064F"},
    {0xFE7A, u"\u0650"},
    {0xFE7C, u"\u0651"},
    {0xFE7E, u"\u0652"},
    {0xFE80, u"\u0621"},
    {0xFE81, u"\u0622"},
    {0xFE83, u"\u0623"},
    {0xFE85, u"\u0624"},
    {0xFE87, u"\u0625"},
    {0xFE89, u"\u0626"},
    {0xFE8D, u"\u0627"},
    {0xFE8F, u"\u0628"},
    {0xFE93, u"\u0629"},
    {0xFE95, u"\u062A"},
    {0xFE99, u"\u062B"},
    {0xFE9D, u"\u062C"},
    {0xFEA1, u"\u062D"},
    {0xFEA5, u"\u062E"},
    {0xFEA9, u"\u062F"},
    {0xFEAB, u"\u0630"},
    {0xFEAD, u"\u0631"},
    {0xFEAF, u"\u0632"},
    {0xFEB1, u"\u0633"},
    {0xFEB5, u"\u0634"},
    {0xFEB9, u"\u0635"},
    {0xFEBD, u"\u0636"},
    {0xFEC1, u"\u0637"},
    {0xFEC5, u"\u0638"},
    {0xFEC9, u"\u0639"},
    {0xFECD, u"\u063A"},
    {0xFED1, u"\u0641"},
    {0xFED5, u"\u0642"},
    {0xFED9, u"\u0643"},
    {0xFEDD, u"\u0644"},
    {0xFEE1, u"\u0645"},
    {0xFEE5, u"\u0646"},
    {0xFEE9, u"\u0647"},
    {0xFEED, u"\u0648"},
    {0xFEEF, u"\u0649"},
    {0xFEF1, u"\u064A"},
    {0xFEF5, u"\u0644\u0622"},
    {0xFEF7, u"\u0644\u0623"},
    {0xFEF9, u"\u0644\u0625"},
    {0xFEFB, u"\u0644\u0627"},
    {0xFEFD, u""},
};

} // namespace

std::u16string_view lettersOfArabicForm(char16_t form) {
    auto next = std::upper_bound(std::begin(kForms), std::end(kForms), form,
                                 [](char16_t c, const Forms& forms) { return c < forms.first; });
    return next == std::begin(kForms) ? std::u16string_view() : std::prev(next)->letters;
}
