// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/TextLoader.h"

#include "Platform/Foundation/NSAssertionHandler.h"
#include "Platform/Foundation/NSDebug.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSProcessInfo.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "Platform/Foundation/StringFormat.h"
#include "Source/Tools/texttool/Settings.h"
#include "ZORFoundation/Source/NSProcessInfo+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORBasics.h"
#include "ZORFoundation/Source/NSString+ZORPaths.h"
#include "ZORFoundation/Source/ZOREmptyURLCache.h"
#include "ZORFoundation/Source/ZORWebArchiveURLProtocol.h"

namespace {

constexpr std::u16string_view kSeparator = u"\n----\n";

// Nested hidden elements repeat their text, so that a page can make gigabytes of it. UTF-16 units of one
// frame, after which no more is collected.
constexpr size_t kMostHiddenText = size_t(1) << 26;

void registerProtocol() {
    const bool ok = NSURLProtocol::registerClass(ZORWebArchiveURLProtocol::protocolClass());
    if (!ok) {
        NSAssertionHandler::currentHandler().handleFailureInMethod(
            u"-[TextLoader loadWebArchive:]", u"Source/Tools/texttool", 276,
            stringWithFormat("Invalid parameter not satisfying: %s", "ok"));
    }
}

bool runsScripts() {
    return NSProcessInfo::processInfo().environmentValue("RetryWithJavaScript").isEqualToString(u"YES") ||
           hostBool(u"LkTextToolEnableJavaScript", false);
}

bool isOffline() { return !NSProcessInfoZOR::zorIsMavericksOrBetter() || isForcedOffline(); }

} // namespace

TextLoader::~TextLoader() {
    if (_view) _view->setResourceLoadDelegate(nullptr);
}

void TextLoader::clearURLCache() {
    const NSString folder = zorChild(NSTemporaryDirectory(), NSProcessInfo::processInfo().processName());
    NSURLCache::setSharedURLCache(std::make_unique<ZOREmptyURLCache>(1024, 1024, folder));
}

void TextLoader::loadWebArchive(const WebArchive& archive) {
    if (!hostBool(u"ZORSuppressWebArchiveWorkaround", false)) registerProtocol();
    const int64_t timeout = hostInteger(u"LkTextToolWebArchiveTimeout", 20);
    _timeoutDate = NSDate(NSDate::now().timeIntervalSinceReferenceDate() + double(timeout));
    _view->setTimeoutDate(_timeoutDate);
    startLoading();
    const WebPreferences& preferences = _view->preferences();
    preferences.setJavaScriptEnabled(runsScripts());
    preferences.setJavaEnabled(false);
    preferences.setPlugInsEnabled(false);
    _resourceLoadDelegate = std::make_unique<ZORWebArchiveWebResourceLoadDelegate>();
    _resourceLoadDelegate->setOffline(isOffline());
    _resourceLoadDelegate->setWorkaroundEnabled(true);
    _resourceLoadDelegate->setWebArchive(archive);
    _view->setResourceLoadDelegate(_resourceLoadDelegate.get());
    _justTitle = NSUserDefaults::standardUserDefaults().boolForKey(NSString(u"SkipBody"));
    _view->mainFrame().loadArchive(archive);
    waitUntilDone();
}

void TextLoader::webViewDecidePolicyForMIMEType(WebView&, const NSString&, const NSURLRequest&,
                                                const WebFrame&, WebPolicyDecisionListener& listener) {
    listener.use();
}

NSString TextLoader::text() const { return stringFromFrame(_view->mainFrame()); }

bool TextLoader::isStringValid(const NSString& string) {
    return !string.isEmpty() && !string.isEqualToString(u"\n");
}

NSString TextLoader::stringFromFrame(const WebFrame& frame) const {
    std::u16string text;
    appendFrame(frame, text);
    return NSString(std::move(text));
}

void TextLoader::appendFrame(const WebFrame& frame, std::u16string& text) const {
    const WebDocumentView documentView = frame.frameView().documentView;
    if (documentView.conformsToWebDocumentText()) {
        frame.DOMDocument(); // engines finish the document over it, before its text is read
        const NSString string = documentView.string();
        if (!isStringValid(string)) debugLog("Still no string for %@", documentView);
        text += string.text();
        std::vector<NSString> chunks;
        appendInvisibleChunksFromNode(frame.DOMDocument(), chunks);
        for (const NSString& chunk : chunks) text.append(kSeparator).append(chunk.text());
    } else {
        debugLog("%@ doesn't conform to WebDocumentText", documentView);
    }
    for (const WebFrame& child : frame.childFrames()) {
        text += kSeparator;
        appendFrame(child, text);
    }
}

// Documents of scripts can be nested deeper than the stack is deep, so the walk keeps its own.
void TextLoader::appendInvisibleChunksFromNode(const DOMNode& node, std::vector<NSString>& chunks) {
    struct Step {
        DOMNode node;
        uint32_t nextChild = 0;
    };
    size_t length = 0;
    auto visit = [&](const DOMNode& visited) {
        const size_t first = chunks.size();
        appendChunksOfNode(visited, chunks);
        for (size_t i = first; i < chunks.size(); ++i) length += chunks[i].length();
        return Step{visited};
    };
    std::vector<Step> path;
    if (node) path.push_back(visit(node));
    while (!path.empty() && length <= kMostHiddenText) {
        Step& step = path.back();
        if (step.nextChild < step.node.childNodesLength()) {
            path.push_back(visit(step.node.childNode(step.nextChild++)));
        } else {
            path.pop_back();
        }
    }
}

void TextLoader::appendChunksOfNode(const DOMNode& node, std::vector<NSString>& chunks) {
    if (node.isDOMElement() && zorCaseInsensitiveIsEqual(node.inlineStyle(u"display"), NSString(u"none")))
        appendString(node.textContent(), node, chunks);
    if (node.isDOMHTMLImageElement()) appendString(node.alt(), node, chunks);
    if (node.isDOMHTMLElement()) appendString(node.title(), node, chunks);
}

void TextLoader::appendString(const NSString& string, const DOMNode& node, std::vector<NSString>& chunks) {
    if (string.isEmpty()) return;
    debugLog("node: %@ string: %@", node.description(), string);
    chunks.push_back(string);
}
