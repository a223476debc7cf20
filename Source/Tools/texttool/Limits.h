// SPDX-License-Identifier: Apache-2.0
//
// How much one document may cost. Each limit is a setting of the host, so large by default that no honest
// document meets it; 0 is none.
//
//   LkTextToolMemoryLimit          MiB of data                                   4096
//   LkTextToolProcessorTimeLimit   seconds of processor time, in each process     120
//   LkTextToolOutputLimit          MiB of the record                             2048
//   LkTextToolOpenFilesLimit       open files, in each process                   1024
//   LkTextToolProcessLimit         processes beside those that the system has     256
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSString.h"

// Sets the limits for a document, and prepares the record that goes out when the time is over: then the
// process writes it and ends with status 0.
void setLimits(const NSString& path);

// Sets the limit of memory, apart: a web engine reserves more than any memory has and bounds by itself what
// it uses.
void limitMemory();

// Reports that the document needed more memory than there is. To be called when what it took has been given
// back.
void reportWantOfMemory();

// The record, or the one of an error when it is larger than a record may be.
NSData limitedRecord(const NSData& record);
