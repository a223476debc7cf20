// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Loader.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDebug.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/Foundation/NSURLCache.h"
#include "Source/Tools/texttool/Settings.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSProcessInfo+ZOR.h"

namespace {

constexpr NSRect kViewFrame = {{0, 0}, {612, 612}};
constexpr double kStep = 0.2; // seconds

const NSString& rootPage() {
    static const NSString placeholder(u"rootPage");
    return placeholder;
}

double now() { return NSDate::now().timeIntervalSinceReferenceDate(); }

void runUntil(double referenceTime) { NSRunLoop::currentRunLoop().runUntilDate(NSDate(referenceTime)); }

} // namespace

Loader::~Loader() { NSNotificationCenter::defaultCenter().removeObserver(this); }

bool Loader::init(WebViewMaker makeView, NSError* error) {
    clearURLCache();
    _view = makeView(kViewFrame, nullptr, nullptr, error);
    if (!_view) return false;
    _view->setFrameLoadDelegate(this);
    _view->setPolicyDelegate(this);
    _view->setResourceLoadDelegate(this);
    NSNotificationCenter::defaultCenter().addObserver(
        this, [this](const NSNotification& notification) { progressFinished(notification); },
        NSString(WebViewProgressFinishedNotification), _view.get());
    return true;
}

void Loader::clearURLCache() {
    NSURLCache& cache = NSURLCache::sharedURLCache();
    cache.removeAllCachedResponses();
    cache.setDiskCapacity(0);
    cache.setMemoryCapacity(0);
}

void Loader::startLoading() { _objectsLoading.push_back(rootPage()); }

void Loader::waitUntilDone() {
    // Chooses pools of memory that there are none of here; the setting is read as ever.
    hostBool(u"LoaderUsePool", NSProcessInfoZOR::zorIsMavericksOrBetter());
    while (!_objectsLoading.empty()) {
        debugLog("loading: %@", NSArray(_objectsLoading));
        if (_justTitle && pageTitle()) break;
        if (_timeoutDate && now() > _timeoutDate.timeIntervalSinceReferenceDate()) {
            debugLog("Timing out");
            break;
        }
        postProgress(_view->estimatedProgress());
        runUntil(now() + kStep);
    }
    debugLog("Extra wait for WebView to finish loading");
    runUntil(now() + double(webToolExtraLoadingTime()));
    debugLog("done loading: %@", NSArray(_objectsLoading));
}

NSString Loader::pageTitle() const { return _view->mainFrame().dataSource().pageTitle(); }

int64_t Loader::webToolTimeout() const { return hostInteger(u"WebToolTimeout", 60); }
bool Loader::shouldEnablePlugIns() const { return hostBool(u"WebToolEnableWebPlugIns", false); }
uint64_t Loader::maxTriesBeforeTimeout() const {
    return uint64_t(hostInteger(u"WebToolMaxTriesBeforeTimeout", 3));
}
int64_t Loader::webToolExtraLoadingTime() const {
    return _justTitle ? 0 : hostInteger(u"WebToolExtraLoadingTime", 2);
}
double Loader::margin() const { return double(hostInteger(u"Web2PDFPageMargin", 36)); }

void Loader::progressFinished(const NSNotification&) { debugLog("Progress finished"); }

void Loader::removeLoading(const NSObject& object) { std::erase(_objectsLoading, object); }

void Loader::webViewDidStartProvisionalLoadForFrame(WebView&, const WebFrame& frame) {
    removeLoading(rootPage());
    if (frame) {
        _objectsLoading.push_back(frame);
    } else {
        NSLog(u"didStartProvisionalLoadForFrame got nil frame");
    }
    debugLog("didStartProvisionalLoadForFrame: %@", frame);
}

void Loader::webViewDidFinishLoadForFrame(WebView&, const WebFrame& frame) {
    removeLoading(frame);
    debugLog("didFinishLoadForFrame: %@", frame);
}

void Loader::webViewDidFailProvisionalLoadWithErrorForFrame(WebView&, const NSError& error,
                                                            const WebFrame& frame) {
    removeLoading(frame);
    debugLog("didFailProvisionalLoadWithError: %@", zorFullDescription(error));
    _error = error;
}

void Loader::webViewDidFailLoadWithErrorForFrame(WebView&, const NSError& error, const WebFrame& frame) {
    removeLoading(frame);
    debugLog("didFailLoadWithError: %@", zorFullDescription(error));
    _error = error;
}

void Loader::webViewDecidePolicyForNavigationAction(WebView&, const NSDictionary& actionInformation,
                                                    const NSURLRequest&, const WebFrame&,
                                                    WebPolicyDecisionListener& listener) {
    const auto type = actionInformation.get<NSNumber>(NSString(WebActionNavigationTypeKey));
    if (type.integerValue() == WebNavigationTypeOther) {
        listener.use();
    } else {
        listener.ignore();
    }
}

void Loader::webViewDecidePolicyForNewWindowAction(WebView&, const NSDictionary&, const NSURLRequest&,
                                                   const NSString&, WebPolicyDecisionListener& listener) {
    listener.ignore();
}

void Loader::webViewResourceDidReceiveAuthenticationChallenge(WebView&,
                                                              const NSURLAuthenticationChallenge& challenge,
                                                              const WebDataSource&) {
    challenge.sender.cancelAuthenticationChallenge(challenge);
    _error = NSError(NSURLErrorDomain, NSURLErrorUserAuthenticationRequired);
}
