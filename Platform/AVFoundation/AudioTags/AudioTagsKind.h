// SPDX-License-Identifier: Apache-2.0
//
// Which of the library's readers a file is for.
#pragma once

#include "Platform/Foundation/ByteSource.h"

enum class AudioTagsKind {
    none,
    windowsMedia,
    atTheEnd // whatever the file is, there is an APE or an ID3v1 tag at the end
};

// The kind of a file whose content begins at `begin`, behind other tags.
AudioTagsKind audioTagsKind(ByteSource& source, uint64_t begin);
