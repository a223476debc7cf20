// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/NSAttributedString.h"

#include "Platform/AppKit/DocumentAttributes.h"
#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"

#include <cerrno>
#include <sys/stat.h>

namespace {

NSError cocoaError(int64_t code, const NSDictionary& userInfo = NSDictionary()) {
    return NSError(NSCocoaErrorDomain, code, userInfo);
}

NSError errorOfStatus(ReadStatus status) {
    switch (status) {
    case ReadStatus::locked:
        return cocoaError(
            NSFileReadNoPermissionError,
            {{NSString(NSLocalizedDescriptionKey),
              NSString(u"The document couldn’t be opened because it is protected by a password.")}});
    case ReadStatus::outOfMemory:
        return cocoaError(NSFileReadUnknownError, {{NSString(NSUnderlyingErrorKey), NSError::posix(ENOMEM)}});
    default: return cocoaError(NSFileReadCorruptFileError);
    }
}

Deadline deadlineOf(const NSDictionary& options) {
    double seconds = options.get<NSNumber>(NSString(NSTimeoutDocumentOption)).doubleValue();
    return seconds > 0 ? Deadline(std::chrono::duration<double>(seconds)) : Deadline();
}

NSAttributedString readAs(const DocumentKind& kind, std::string_view bytes, const NSDictionary& options,
                          NSDictionary* attributes, NSError* error) {
    NSString why;
    DocumentReader reader = readerOfKind(kind, &why);
    if (!reader) {
        fail(error, moduleError(why));
        return {};
    }
    DocumentContents contents;
    Deadline deadline = deadlineOf(options);
    ReadStatus status = readGuarded(reader, bytes, deadline, contents);
    if (status != ReadStatus::read) {
        fail(error, errorOfStatus(status));
        return {};
    }
    if (attributes) *attributes = documentAttributes(contents.info, kind.documentType, kind.fileType);
    return NSAttributedString(NSString(std::move(contents.text)));
}

NSString declaredType(const NSDictionary& options) {
    return options.get<NSString>(NSString(NSDocumentTypeDocumentOption));
}

NSError fileError(int64_t code, const NSString& path, int systemErrno) {
    return cocoaError(code, {{NSString(NSFilePathErrorKey), path},
                             {NSString(NSUnderlyingErrorKey), NSError::posix(systemErrno)}});
}

bool exists(const NSString& path) {
    struct stat info {};
    return stat(fileSystemRepresentation(path).c_str(), &info) == 0;
}

// The text of an RTFD package, or of nothing else that is a directory.
NSAttributedString readPackage(const NSString& path, const NSDictionary& options, NSDictionary* attributes,
                               NSError* error) {
    NSString text = stringByAppendingPathComponent(path, u"TXT.rtf");
    if (!exists(text)) {
        fail(error, fileError(NSFileReadUnknownError, path, EISDIR));
        return {};
    }
    NSString type = declaredType(options);
    if (type && type != NSString(NSRTFDTextDocumentType)) {
        fail(error, cocoaError(NSFileReadCorruptFileError, {{NSString(NSFilePathErrorKey), path}}));
        return {};
    }
    NSData data = NSData::dataWithContentsOfFile(text, NSDataReadingUncached, error);
    if (!data) return {};
    return readAs(*documentKindOfType(NSRTFDTextDocumentType), data.bytes(), options, attributes, error);
}

} // namespace

NSAttributedString NSAttributedString::initWithData(const NSData& data, const NSDictionary& options,
                                                    NSDictionary* documentAttributes, NSError* error) {
    if (!data) {
        fail(error, cocoaError(NSFileReadUnknownError));
        return {};
    }
    NSString type = declaredType(options);
    const DocumentKind* kind = type ? documentKindOfType(type) : documentKindOfBytes(data.bytes());
    if (!kind) {
        fail(error, cocoaError(type ? NSTextReadInapplicableDocumentTypeError : NSFileReadCorruptFileError));
        return {};
    }
    return readAs(*kind, data.bytes(), options, documentAttributes, error);
}

NSAttributedString NSAttributedString::initWithURL(const NSURL& url, const NSDictionary& options,
                                                   NSDictionary* documentAttributes, NSError* error) {
    if (!url.isFileURL()) {
        fail(error, cocoaError(NSFileReadUnsupportedSchemeError));
        return {};
    }
    NSString path = url.path();
    struct stat info {};
    if (stat(fileSystemRepresentation(path).c_str(), &info) != 0) {
        fail(error, fileError(NSFileReadNoSuchFileError, path, errno));
        return {};
    }
    if (S_ISDIR(info.st_mode)) return readPackage(path, options, documentAttributes, error);
    if (!S_ISREG(info.st_mode)) {
        fail(error, cocoaError(NSFileReadUnknownError, {{NSString(NSFilePathErrorKey), path}}));
        return {};
    }
    NSData data = NSData::dataWithContentsOfFile(path, NSDataReadingUncached, error);
    return data ? initWithData(data, options, documentAttributes, error) : NSAttributedString();
}
