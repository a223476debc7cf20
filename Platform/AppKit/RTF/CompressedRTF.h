// SPDX-License-Identifier: Apache-2.0
//
// The compression of RTF in mail of Outlook, [MS-OXRTFCP].
#pragma once

#include <string>
#include <string_view>

// "" of bytes that are not of this form; of damaged ones what stands before the damage.
std::string decompressedRTF(std::string_view bytes);
