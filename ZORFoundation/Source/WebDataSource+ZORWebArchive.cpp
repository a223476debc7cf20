// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/WebDataSource+ZORWebArchive.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/StringFormat.h"

namespace {

std::vector<WebResource> subresourcesOf(const WebDataSource& dataSource) {
    try {
        return dataSource.subresources();
    } catch (const NSException& exception) {
        NSLog(stringWithFormat("Larkspur encountered an internal Web Kit error '%@' while getting the "
                               "subresources for %@",
                               exception.reason(), dataSource));
        return {};
    }
}

} // namespace

WebArchive zorWebArchive(const WebDataSource& dataSource) { return zorArchiveFrame(dataSource.webFrame()); }

WebArchive zorArchiveFrame(const WebFrame& frame) {
    const WebDataSource dataSource = frame.dataSource();
    if (!dataSource || !dataSource.mainResource()) return nullptr;
    return WebArchive(dataSource.mainResource(), subresourcesOf(dataSource),
                      zorSubframeArchivesForFrame(frame));
}

std::vector<WebArchive> zorSubframeArchivesForFrame(const WebFrame& frame) {
    std::vector<WebArchive> archives;
    for (const WebFrame& child : frame.childFrames()) {
        if (const WebArchive archive = zorArchiveFrame(child)) archives.push_back(archive);
    }
    return archives;
}
