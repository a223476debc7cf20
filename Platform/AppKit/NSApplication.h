// SPDX-License-Identifier: Apache-2.0
//
// Start-up of the application framework.
#pragma once

// Makes the document readers ready. Their tables are constant and their modules load on first use, so that
// nothing is left to do; programs call it all the same before they read a document.
inline bool NSApplicationLoad() { return true; }
