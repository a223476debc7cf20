// SPDX-License-Identifier: Apache-2.0
//
// Looking at the page.
#include "Platform/Foundation/NSLog.h"
#include "Platform/WebKit/Engine/EngineView.h"
#include "Platform/WebKit/Engine/Surroundings.h"

#include <algorithm>

namespace {

// How long a page may take to be read: past the deadline of its load only as long as a page that is not
// hostile needs.
constexpr double kPatience = 20;
constexpr double kPatiencePastDeadline = 0.6;

// Shared with the answer, which may come after nobody waits for it any more.
struct Question {
    bool isAnswered = false;
    std::string fields;
};

void answered(GObject* view, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<std::shared_ptr<Question>> question(static_cast<std::shared_ptr<Question>*>(data));
    (*question)->isAnswered = true;
    WebKitUserMessage* message =
        webkit_web_view_send_message_to_page_finish(WEBKIT_WEB_VIEW(view), result, nullptr);
    if (!message) return;
    if (GVariant* fields = webkit_user_message_get_parameters(message);
        fields && g_variant_is_of_type(fields, G_VARIANT_TYPE_BYTESTRING)) {
        gsize length = 0;
        auto bytes = static_cast<const char*>(g_variant_get_fixed_array(fields, &length, 1));
        (*question)->fields.assign(bytes, length);
    }
    g_object_unref(message);
}

double patience(const NSDate& deadline) {
    if (!deadline) return kPatience;
    const double left =
        deadline.timeIntervalSinceReferenceDate() - NSDate::now().timeIntervalSinceReferenceDate();
    return std::max(left, 0.0) + kPatiencePastDeadline;
}

} // namespace

std::shared_ptr<const PageSnapshot> EngineView::snapshot() {
    if (!snapshot_ || snapshotRound_ != toolkitRounds()) {
        snapshot_ = std::make_shared<const PageSnapshot>(PageSnapshot::withFields(askPage()));
        snapshotRound_ = toolkitRounds();
    }
    return snapshot_;
}

// The script's fields; "" when there is no page or it does not answer.
std::string EngineView::askPage() {
    if (!isShown_ || !hasProcess_) return {};
    auto question = std::make_shared<Question>();
    webkit_web_view_send_message_to_page(view_, webkit_user_message_new("read", nullptr), nullptr, answered,
                                         new std::shared_ptr<Question>(question));
    waitForToolkit(patience(timeoutDate()), [&] { return question->isAnswered || !hasProcess_; });
    if (!question->isAnswered) NSLog(u"The web page does not answer; its text is left out.");
    return std::move(question->fields);
}
