// SPDX-License-Identifier: Apache-2.0
//
// The text of a web archive: what is laid out, and what is hidden in the document.
#pragma once

#include "Source/Tools/texttool/Loader.h"
#include "ZORFoundation/Source/ZORWebArchiveWebResourceLoadDelegate.h"

class TextLoader : public Loader {
public:
    ~TextLoader() override;

    // Shows the archive and returns when the wait is over, whatever has come of it. Raises when the handler
    // of archived resources is refused.
    void loadWebArchive(const WebArchive& archive);

    // Of the main frame and all frames below it. Never nil.
    NSString text() const;

    // The frame's laid-out text, its hidden pieces and the same of its child frames, each set off by a line
    // of four hyphens.
    NSString stringFromFrame(const WebFrame& frame) const;

    // Neither empty nor a single line feed.
    static bool isStringValid(const NSString& string);

    // The text of elements that their style attribute hides, the alternative text of images and the titles of
    // HTML elements, in document order. What lies in nested hidden elements comes once for each.
    static void appendInvisibleChunksFromNode(const DOMNode& node, std::vector<NSString>& chunks);

    int64_t webToolExtraLoadingTime() const override { return 0; }

protected:
    // Installs a cache that never has anything.
    void clearURLCache() override;

    void webViewDecidePolicyForMIMEType(WebView& view, const NSString& type, const NSURLRequest& request,
                                        const WebFrame& frame, WebPolicyDecisionListener& listener) override;

private:
    static void appendChunksOfNode(const DOMNode& node, std::vector<NSString>& chunks);
    static void appendString(const NSString& string, const DOMNode& node, std::vector<NSString>& chunks);
    void appendFrame(const WebFrame& frame, std::u16string& text) const;

    std::unique_ptr<ZORWebArchiveWebResourceLoadDelegate> _resourceLoadDelegate;
};
