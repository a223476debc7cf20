// SPDX-License-Identifier: Apache-2.0
//
// From the request on the command line to the one extractor that serves it.
#pragma once

// Calls the extractor of the first request key that is present, in the fixed order of the keys: a host that
// passes two gets the earlier one. Raises an internal-inconsistency exception, "bad arguments", when there is
// none.
void dispatchRequest();
