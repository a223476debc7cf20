// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/PDFPage.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/PDFKit/PDFEngine.h"

namespace {

NSString stringOrNil(const std::optional<std::u16string>& text) {
    return text ? NSString(*text) : NSString();
}

// An annotation of either class, read when it is first asked something.
template <class Base>
class AnnotationOfPage : public Base {
public:
    AnnotationOfPage(std::shared_ptr<PDFEngine> engine, size_t page, size_t index)
        : engine_(std::move(engine)), page_(page), index_(index) {}

    bool respondsToUserName() const override { return said().answersToUserName; }
    NSString userName() const override { return stringOrNil(said().userName); }
    NSString contents() const override { return stringOrNil(said().contents); }

protected:
    const PDFAnnotationContents& said() const {
        if (!said_) {
            PDFAnnotationContents read;
            if (!engine_->readAnnotation(page_, index_, read))
                NSException(NSGenericException,
                            stringWithFormat("annotation %zu of page %zu cannot be read", index_, page_))
                    .raise();
            said_ = std::move(read);
        }
        return *said_;
    }

private:
    std::shared_ptr<PDFEngine> engine_;
    size_t page_, index_;
    mutable std::optional<PDFAnnotationContents> said_;
};

using Annotation = AnnotationOfPage<PDFAnnotation>;

class Link : public AnnotationOfPage<PDFAnnotationLink> {
public:
    using AnnotationOfPage::AnnotationOfPage;

    NSURL URL() const override {
        NSString url = stringOrNil(said().url), base = stringOrNil(said().baseURL);
        if (!url) return NSURL();
        if (!base) return NSURL::URLWithString(url);
        return NSURL::URLWithString(NSURL::URLWithString(url, NSURL::URLWithString(base)).absoluteString());
    }
};

} // namespace

NSString PDFPage::string() const {
    if (!engine_) return nullptr;
    std::u16string text;
    if (!engine_->appendPageText(index_, text))
        NSException(NSGenericException, stringWithFormat("page %zu cannot be read", index_)).raise();
    return NSString(std::move(text));
}

std::vector<std::unique_ptr<PDFAnnotation>> PDFPage::annotations() const {
    std::vector<std::unique_ptr<PDFAnnotation>> annotations;
    size_t count = engine_ ? engine_->annotationCount(index_) : 0;
    for (size_t i = 0; i < count; ++i) {
        if (engine_->isLink(index_, i)) {
            annotations.push_back(std::make_unique<Link>(engine_, index_, i));
        } else {
            annotations.push_back(std::make_unique<Annotation>(engine_, index_, i));
        }
    }
    return annotations;
}
