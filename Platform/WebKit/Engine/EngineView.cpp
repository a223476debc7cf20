// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Engine/EngineView.h"

#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSNotificationCenter.h"
#include "Platform/WebKit/Engine/EngineContext.h"
#include "Platform/WebKit/Engine/EngineFrame.h"
#include "Platform/WebKit/Engine/MainDocument.h"
#include "Platform/WebKit/Engine/PrivateSchemes.h"
#include "Platform/WebKit/Engine/Surroundings.h"
#include "Platform/WebKit/PDFText.h"

namespace {

// Seconds past the deadline: later than the wait ends and a page may still answer.
constexpr double kLastMoment = 0.9;

} // namespace

EngineView::EngineView(const NSRect& frame, const WebEngineSurroundings& where,
                       const std::string& extensionFolder)
    : caretaker_(where.caretaker), mainFrame_(makeMainFrame(*this)), settings_(makeSettings()),
      context_(makeContext(extensionFolder, where.hasSandbox)), window_(gtk_window_new(GTK_WINDOW_TOPLEVEL)),
      view_(WEBKIT_WEB_VIEW(g_object_new(WEBKIT_TYPE_WEB_VIEW, "web-context", context_.get(), "settings",
                                         settings_.get(), "user-content-manager", makeContent().get(),
                                         nullptr))),
      page_{*this, {}, makeSession(webkit_settings_get_user_agent(settings_.get())), {}} {
    connectSchemes();
    connectSignals();
    // A widget has a size only within a window; the window is never mapped.
    gtk_container_add(GTK_CONTAINER(window_), GTK_WIDGET(view_));
    gtk_widget_show(GTK_WIDGET(view_));
    gtk_widget_realize(GTK_WIDGET(view_));
    GtkAllocation size{0, 0, int(frame.size.width), int(frame.size.height)};
    gtk_widget_size_allocate(GTK_WIDGET(view_), &size);
}

EngineView::~EngineView() {
    g_idle_remove_by_data(this);
    g_signal_handlers_disconnect_by_data(view_, this);
    g_signal_handlers_disconnect_by_data(context_.get(), this);
    webkit_web_view_terminate_web_process(view_);
    gtk_widget_destroy(window_);
}

// Engines know ways to keep a program waiting that no clock of the program ends.
void EngineView::setTimeoutDate(const NSDate& date) {
    WebView::setTimeoutDate(date);
    if (caretaker_)
        caretaker_->endOthersAt(date ? NSDate(date.timeIntervalSinceReferenceDate() + kLastMoment)
                                     : NSDate());
}

double EngineView::estimatedProgress() { return webkit_web_view_get_estimated_load_progress(view_); }

NSString EngineView::title() const {
    const bool isCurrent = snapshot_ && snapshotRound_ == toolkitRounds() && snapshot_->main.isKnown;
    if (isCurrent) return snapshot_->main.title;
    const char* title = webkit_web_view_get_title(view_);
    return title && *title ? NSString::fromUTF8(title) : nullptr;
}

void EngineView::loadArchive(const WebArchive& archive) {
    mainResource_ = archive.mainResource();
    page_.url = mainResource_.URL().absoluteString().utf8();
    applyPreferences(preferences(), settings_.get());
    // Delegates are called while the run loop runs, never from here.
    auto begin = [](gpointer self) -> gboolean {
        static_cast<EngineView*>(self)->showMainResource();
        return G_SOURCE_REMOVE;
    };
    g_idle_add_full(G_PRIORITY_HIGH, begin, this, nullptr);
}

void EngineView::showMainResource() {
    const NSString type = mainResource_.MIMEType();
    if (!isUsed(type) || !(isPDF(type) || canShow(type))) return failUnshowable();
    MainDocument document(mainResource_);
    isShown_ = true;
    webkit_web_view_load_bytes(view_, document.bytes(), document.type(), document.encoding(),
                               page_.url.c_str());
}

// The engine would show the bytes of any type as if they were HTML.
void EngineView::failUnshowable() {
    WebFrameLoadDelegate* delegate = frameLoadDelegate();
    if (!delegate) return;
    delegate->webViewDidStartProvisionalLoadForFrame(*this, mainFrame_);
    delegate->webViewDidFailProvisionalLoadWithErrorForFrame(*this, urlError(NSURLErrorCancelled, page_.url),
                                                             mainFrame_);
}

void EngineView::loadChanged(WebKitLoadEvent event) {
    WebFrameLoadDelegate* delegate = frameLoadDelegate();
    if (event == WEBKIT_LOAD_STARTED) {
        mainHasFailed_ = false;
        if (delegate) delegate->webViewDidStartProvisionalLoadForFrame(*this, mainFrame_);
    } else if (event == WEBKIT_LOAD_FINISHED) {
        if (delegate && !mainHasFailed_) delegate->webViewDidFinishLoadForFrame(*this, mainFrame_);
        NSNotificationCenter::defaultCenter().postNotification({WebViewProgressFinishedNotification, this});
    }
}

void EngineView::loadFailed(WebKitLoadEvent event, const GError& error) {
    mainHasFailed_ = true; // the engine says next that the load is finished
    WebFrameLoadDelegate* delegate = frameLoadDelegate();
    if (!delegate) return;
    if (event == WEBKIT_LOAD_COMMITTED) {
        delegate->webViewDidFailLoadWithErrorForFrame(*this, errorOf(error), mainFrame_);
    } else {
        delegate->webViewDidFailProvisionalLoadWithErrorForFrame(*this, errorOf(error), mainFrame_);
    }
}

// The engine does not announce the loads of other frames. What it announces are navigations, with the URL,
// and the resources that they bring.
void EngineView::resourceStarted(WebKitWebResource* resource) {
    const std::string url = PrivateSchemes::publicURL(webkit_web_resource_get_uri(resource));
    if (std::erase(frameURLs_, url) == 0 || resource == webkit_web_view_get_main_resource(view_)) return;
    const WebFrame frame = makeLoadingFrame();
    framesLoading_.emplace(resource, frame);
    if (frameLoadDelegate()) frameLoadDelegate()->webViewDidStartProvisionalLoadForFrame(*this, frame);
}

void EngineView::resourceEnded(WebKitWebResource* resource) {
    auto loading = framesLoading_.extract(resource);
    if (loading && frameLoadDelegate())
        frameLoadDelegate()->webViewDidFinishLoadForFrame(*this, loading.mapped());
}

void EngineView::processGone() {
    hasProcess_ = false;
    const NSError error = urlError(NSURLErrorCancelled, page_.url);
    NSLog(u"The web page’s process has ended before its time.");
    WebFrameLoadDelegate* delegate = frameLoadDelegate();
    if (!delegate) return;
    for (const auto& [resource, frame] : std::exchange(framesLoading_, {}))
        delegate->webViewDidFailLoadWithErrorForFrame(*this, error, frame);
    delegate->webViewDidFailLoadWithErrorForFrame(*this, error, mainFrame_);
}

void EngineView::requestCame(WebKitURISchemeRequest* request) {
    loads_.remove_if([](const ResourceLoad& load) { return load.isDone(); });
    loads_.emplace_back(page_, request).start();
}
