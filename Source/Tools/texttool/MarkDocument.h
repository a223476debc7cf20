// SPDX-License-Identifier: Apache-2.0
//
// Says from outside which document is being read.
#pragma once

#include "Platform/Foundation/NSString.h"

// The first step of every extractor, before it touches the file: publishes the path as the crash annotation
// and in the log's fields, and parks a thread that carries the file's name.
void markDocument(const NSString& path);
