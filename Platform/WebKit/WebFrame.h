// SPDX-License-Identifier: Apache-2.0
//
// The frames of a page, and what each shows. Handles, as values are: the engine, or a test, stands behind
// them, and they are good for as long as their view is. Asking nil is safe.
#pragma once

#include "Platform/Foundation/NSString.h"
#include "Platform/WebKit/DOMNode.h"
#include "Platform/WebKit/WebArchive.h"

#include <vector>

class WebFrame;

// What a frame shows. nil when it shows nothing.
class WebDocumentView : public NSObject {
public:
    WebDocumentView() = default;
    // A document without text of its own, such as one of a type that cannot be shown.
    static WebDocumentView withoutText();
    static WebDocumentView withText(const NSString& text);

    bool conformsToWebDocumentText() const;
    // The text as it is laid out, lines broken where blocks end. nil without text.
    NSString string() const;

private:
    struct Body;
    explicit WebDocumentView(const ObjectBody* body) : NSObject(body) {}
};

struct WebFrameView {
    WebDocumentView documentView;
};

// Where a frame's document came from.
class WebDataSource : public NSObject {
public:
    class Body : public ObjectBody {
    public:
        Body() : ObjectBody(NSKind::other) {}
        std::string_view className() const override { return "WebDataSource"; }
        std::u16string description(unsigned) const override { return u"<WebDataSource>"; }

        virtual NSString pageTitle() const = 0;
        virtual WebResource mainResource() const = 0;
        virtual std::vector<WebResource> subresources() const = 0;
        virtual WebFrame webFrame() const = 0;
    };

    WebDataSource() = default;
    WebDataSource(std::nullptr_t) {}
    explicit WebDataSource(const Body* body) : NSObject(body) {}

    // nil when the page has none.
    NSString pageTitle() const;
    WebResource mainResource() const;
    // May raise, as engines do for resources that they no longer have.
    std::vector<WebResource> subresources() const;
    WebFrame webFrame() const;

private:
    const Body* source() const { return static_cast<const Body*>(body()); }
};

// Frames are equal when they are the same frame.
class WebFrame : public NSObject {
public:
    class Body : public ObjectBody {
    public:
        Body() : ObjectBody(NSKind::other) {}
        std::string_view className() const override { return "WebFrame"; }
        std::u16string description(unsigned) const override { return u"<WebFrame>"; }

        virtual void loadArchive(const WebArchive& archive) const = 0;
        virtual WebFrameView frameView() const = 0;
        virtual WebDataSource dataSource() const = 0;
        virtual DOMNode DOMDocument() const = 0;
        virtual std::vector<WebFrame> childFrames() const = 0;
    };

    WebFrame() = default;
    WebFrame(std::nullptr_t) {}
    explicit WebFrame(const Body* body) : NSObject(body) {}

    // Starts to show the archive's main resource; the rest follows from the run loop.
    void loadArchive(const WebArchive& archive) const;

    WebFrameView frameView() const;
    WebDataSource dataSource() const;
    // nil for a frame without a document.
    DOMNode DOMDocument() const;
    // In the order in which the document has them.
    std::vector<WebFrame> childFrames() const;

private:
    const Body* frame() const { return static_cast<const Body*>(body()); }
};
