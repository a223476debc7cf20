// SPDX-License-Identifier: Apache-2.0
//
// Media queries: whether a style sheet, or a part of one, is meant for a page on a screen.
#pragma once

#include <string_view>

// A list of queries such as "print, screen and (max-width: 600px)". Conditions other than on the width are
// taken as not met. An empty list is meant for all media.
bool mediaQueriesHold(std::string_view queries);
