// SPDX-License-Identifier: Apache-2.0
//
// Gathers what an RTF document says of itself and gives it in the units of DocumentInfo. RTF's own measure is
// the twip, a twentieth of a point; its times are local times.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Platform/AppKit/RTF/RTFControlWords.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

using RTFTimeFields = std::array<int32_t, kRTFTimeFieldCount>;

class RTFInfo {
public:
    // Keywords past this number are left out.

    // A switch that is told without a value is on; other numbers without one say nothing.
    void setNumber(RTFNumber number, std::optional<int32_t> value);

    void setString(RTFInfoString string, std::u16string text);

    // The properties of the shape that fills the pages come each as its name and then its value.
    void setBackground(RTFShapePropertyPart part, std::u16string text);

    // A time is begun, told field by field, and ended; one that no calendar has is left out.
    void beginTime() { time_ = {}; }
    void setTimeField(RTFTimeField field, int32_t value) { time_[field] = value; }
    void endTime(RTFTime time) { (time == kRTFCreationTime ? creationTime_ : modificationTime_) = time_; }

    DocumentInfo finish() &&;

private:
    double points(RTFNumber number, double otherwise) const;
    void finishView();

    DocumentInfo info_;
    std::u16string makersComment_;
    std::array<std::optional<int32_t>, kRTFNumberCount> numbers_;
    std::u16string backgroundProperty_; // whose value comes next
    bool backgroundIsFilled_ = true;
    RTFTimeFields time_{}, creationTime_{}, modificationTime_{};
};
