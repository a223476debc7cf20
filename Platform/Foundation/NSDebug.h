// SPDX-License-Identifier: Apache-2.0
//
// The switch for diagnostic log lines.
#pragma once

// Whether the environment sets NSDebugEnabled to YES.
bool NSDebugEnabled();
