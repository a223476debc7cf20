// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSURLPathUtilities.h"
#include "Platform/Foundation/StringFormat.h"
#include "ZORFoundation/Source/NSString+ZORPaths.h"
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"
#include "ZORFoundation/Source/NSURL+ZORFileBasics.h"
#include "ZORFoundation/Source/ZORPrecondition.h"

#include <mutex>
#include <optional>
#include <string>
#include <sys/stat.h>

namespace {

// A name in a directory, whatever way leads to the directory.
struct Place {
    dev_t device = 0;
    ino_t directory = 0; // 0: there is none, and the name is the whole path
    NSString name;

    static Place of(const NSURL& url) {
        struct stat parent {};
        const std::optional<std::string> path = fileSystemRepresentation(zorParent(url));
        if (!path || stat(path->c_str(), &parent) != 0) return {0, 0, zorAbsolutePath(url)};
        return {parent.st_dev, parent.st_ino, zorName(url)};
    }
    bool operator==(const Place& other) const {
        return device == other.device && directory == other.directory && name.isEqualToString(other.name);
    }
};

class Reservation;

std::mutex lock;              // every caller holds it from start to return
Reservation* first = nullptr; // of the living threads that have one

// The place that a thread was given last, until something stands there.
class Reservation {
public:
    Reservation() : next_(first) { first = this; } // under the caller's lock
    ~Reservation() {
        const std::lock_guard guard(lock);
        Reservation** link = &first;
        while (*link != this) link = &(*link)->next_;
        *link = next_;
    }
    Reservation(const Reservation&) = delete;
    Reservation& operator=(const Reservation&) = delete;

    void setPlace(const Place& place) { place_ = place; }

    bool isOfAnotherThread(const Place& place) const {
        for (const Reservation* other = first; other; other = other->next_) {
            if (other != this && other->place_ == place) return true;
        }
        return false;
    }
    static void forget(const Place& place) {
        for (Reservation* each = first; each; each = each->next_) {
            if (each->place_ == place) each->place_ = {};
        }
    }

private:
    Place place_;
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
        const Place place = Place::of(candidate);
        if (zorPathExists(candidate)) {
            Reservation::forget(place);
        } else if (!mine.isOfAnotherThread(place)) {
            mine.setPlace(place);
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
