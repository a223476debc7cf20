// SPDX-License-Identifier: Apache-2.0
//
// Archives of what a view shows.
#pragma once

#include "Platform/WebKit/WebFrame.h"

#include <vector>

// The archive of the data source's own frame.
WebArchive zorWebArchive(const WebDataSource& dataSource);

// The frame's main resource, its subresources and the archives of its child frames. An engine that raises an
// exception over the subresources costs only these; it is logged. nil for a frame without a data source.
WebArchive zorArchiveFrame(const WebFrame& frame);

// Those of the child frames, in child order.
std::vector<WebArchive> zorSubframeArchivesForFrame(const WebFrame& frame);
