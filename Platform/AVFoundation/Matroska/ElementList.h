// SPDX-License-Identifier: Apache-2.0
//
// The elements of EBML, on which Matroska is built: an identifier, a length, a body.
#pragma once

#include "Platform/Foundation/ByteSource.h"

struct Element {
    uint32_t identifier = 0;
    ByteRange body;
    bool hasLength =
        true; // else it was not known when it was written, and the body goes to the end of the parent
};

// Goes through the elements that lie one after the other in a range.
class ElementList {
public:
    ElementList(ByteSource& source, ByteRange range) : source_(source), rest_(range) {}

    // False at the end, and at what cannot be an element.
    bool next(Element& element);

private:
    // Takes a number whose length its first byte tells; 0 and a length of 0 when there is none.
    uint64_t takeNumber(unsigned& length, unsigned longest, bool keepsMarker);

    ByteSource& source_;
    ByteRange rest_;
};
