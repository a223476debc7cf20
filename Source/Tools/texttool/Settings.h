// SPDX-License-Identifier: Apache-2.0
//
// Who the host is.
#pragma once

// The host application's identifier: the preferences domain of its settings.
inline constexpr const char16_t* kHostDomain = u"" TEXTTOOL_HOST_DOMAIN;

// This tool's own identifier.
inline constexpr const char16_t* kToolDomain = u"" TEXTTOOL_HOST_DOMAIN ".texttool";
