// SPDX-License-Identifier: Apache-2.0
//
// An annotation of a page: a note, a mark, a field, a link.
#pragma once

#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/NSURL.h"

class PDFAnnotation {
public:
    virtual ~PDFAnnotation() = default;

    // Whether this kind of annotation has an author. Fields, links and pop-up windows have none.
    virtual bool respondsToUserName() const = 0;
    // nil when it is not said.
    virtual NSString userName() const = 0;
    // nil when there are none; "" when there are empty ones.
    virtual NSString contents() const = 0;
};

class PDFAnnotationLink : public PDFAnnotation {
public:
    // nil for a link that leads somewhere else than to a URL.
    virtual NSURL URL() const = 0;
};
