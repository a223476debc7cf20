// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSDictionary+ZORPropertyListSerialization.h"

#include "ZORFoundation/Source/NSObject+ZOR.h"
#include "ZORFoundation/Source/NSPropertyListSerialization+ZOR.h"
#include "ZORFoundation/Source/ZORFailure.h"

NSDictionary NSDictionaryZORPropertyListSerialization::zorReadURL(const NSURL& url, NSError* error) {
    const NSObject list = NSPropertyListSerializationZOR::zorReadURL(url, error);
    if (zorEnsureClass(list, NSClass("NSDictionary"), error)) return as<NSDictionary>(list);
    addFrame(error, {"+[NSDictionary(ZORPropertyListSerialization) zorReadURL:error:]", 119});
    return nullptr;
}
