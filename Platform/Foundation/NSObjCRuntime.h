// SPDX-License-Identifier: Apache-2.0
//
// How two values are ordered.
#pragma once

enum NSComparisonResult : int { NSOrderedAscending = -1, NSOrderedSame = 0, NSOrderedDescending = 1 };
