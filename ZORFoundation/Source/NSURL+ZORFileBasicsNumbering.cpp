// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/StringFormat.h"
#include "ZORFoundation/Source/NSString+ZORPaths.h"
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"
#include "ZORFoundation/Source/NSURL+ZORFileBasics.h"
#include "ZORFoundation/Source/ZORPrecondition.h"

#include <mutex>

namespace {

class Reservation;

std::mutex lock;              // every caller holds it from start to return
Reservation* first = nullptr; // of the living threads that have one

// The name that a thread was given last.
class Reservation {
public:
    Reservation() : next_(first) { first = this; } // under the caller's lock
    ~Reservation() {
        const std::lock_guard guard(lock);
        Reservation** place = &first;
        while (*place != this) place = &(*place)->next_;
        *place = next_;
    }
    Reservation(const Reservation&) = delete;
    Reservation& operator=(const Reservation&) = delete;

    void setPath(const NSString& path) { path_ = path; }

    bool isOfAnotherThread(const NSString& path) const {
        for (const Reservation* other = first; other; other = other->next_) {
            if (other != this && other->path_.isEqualToString(path)) return true;
        }
        return false;
    }

private:
    NSString path_;
    Reservation* next_;
};

// A name's extension, with the inner one of names such as "site.tar.gz", and what is before it.
struct Split {
    NSURL stem;
    NSString extension;
};

Split split(const NSURL& url) {
    const NSString extension = zorPathExtension(url);
    if (extension.text().find(u' ') != std::u16string::npos) return {url, u""};
    const NSURL stem = zorBasenameURL(url);
    if (!zorHasExtension(stem, u"tar") && !zorHasExtension(stem, u"app")) return {stem, extension};
    return {zorBasenameURL(stem), zorPathExtension(stem) + u"." + extension};
}

NSURL numbered(const Split& name, int number) {
    NSString suffix = stringWithFormat("-%d", number);
    if (!name.extension.isEmpty()) suffix = suffix + u"." + name.extension;
    return zorChild(
        zorParent(name.stem),
        zorStringByAddingSuffix(zorName(name.stem), suffix, NSStringZORPaths::zorMaxFileNameCharacters()));
}

} // namespace

NSURL zorSimilarNonExistentURL(const NSURL& url) {
    if (!url) return {};
    const std::lock_guard guard(lock);
    thread_local Reservation mine;
    const Split name = split(url);
    NSURL candidate = url;
    for (int number = 1;; ++number) {
        const NSString path = zorAbsolutePath(candidate);
        if (!zorPathExists(candidate) && !mine.isOfAnotherThread(path)) {
            mine.setPath(path);
            return candidate;
        }
        candidate = numbered(name, number);
    }
}

NSURL zorSimilarNonExistentURLInDirectory(const NSURL& url, const NSURL& directory) {
    if (!zorDirectoryExists(directory)) {
        zorStopAfterReport({"ZORFoundation/Source/NSURL+ZORFileBasics",
                            __LINE__,
                            {ZORReceiver::Kind::instance},
                            "zorSimilarNonExistentURLInDirectory:"},
                           "-[NSURL(ZORFileBasics) zorSimilarNonExistentURLInDirectory:]",
                           "[directory zorDirectoryExists]");
    }
    return zorSimilarNonExistentURL(zorChild(directory, zorName(url)));
}
