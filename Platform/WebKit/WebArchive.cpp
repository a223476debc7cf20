// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/WebArchive.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"

namespace {

constexpr const char16_t* kMainResource = u"WebMainResource";
constexpr const char16_t* kSubframeArchives = u"WebSubframeArchives";
constexpr const char16_t* kSubresources = u"WebSubresources";

constexpr unsigned kDeepestNesting = 64;

// A binary list can refer to one archive many times over; a tree of more archives and resources than this is
// no page.
constexpr size_t kMostParts = 100'000;

} // namespace

struct WebArchive::Body final : ObjectBody {
    Body() : ObjectBody(NSKind::other) {}
    Body(const WebResource& mainResource, std::vector<WebResource> subresources,
         std::vector<WebArchive> subframeArchives)
        : ObjectBody(NSKind::other), mainResource(mainResource), subresources(std::move(subresources)),
          subframeArchives(std::move(subframeArchives)) {}

    std::string_view className() const override { return "WebArchive"; }
    std::u16string description(unsigned) const override {
        return u"<WebArchive " + printed(mainResource.URL()) + u">";
    }

    const WebResource mainResource;
    const std::vector<WebResource> subresources;
    const std::vector<WebArchive> subframeArchives;
};

struct WebArchive::Reader {
    size_t parts = 0;
    bool isRefused = false; // nested too deeply, or too many parts

    WebArchive read(const NSDictionary& list, unsigned nesting) {
        const auto main = WebResource::withPropertyList(list.objectForKey(NSString(kMainResource)));
        if (!main || !isAcceptable(nesting)) return nullptr;
        auto resources = subresourcesOf(list, nesting);
        return WebArchive(main, std::move(resources), subframesOf(list, nesting));
    }

    bool isAcceptable(unsigned nesting) {
        if (nesting > kDeepestNesting || ++parts > kMostParts) isRefused = true;
        return !isRefused;
    }

    std::vector<WebResource> subresourcesOf(const NSDictionary& list, unsigned nesting) {
        std::vector<WebResource> resources;
        for (const NSObject& entry : list.get<NSArray>(NSString(kSubresources))) {
            if (!isAcceptable(nesting)) break;
            if (auto resource = WebResource::withPropertyList(entry)) resources.push_back(resource);
        }
        return resources;
    }

    std::vector<WebArchive> subframesOf(const NSDictionary& list, unsigned nesting) {
        std::vector<WebArchive> frames;
        for (const NSObject& entry : list.get<NSArray>(NSString(kSubframeArchives))) {
            if (auto frame = read(as<NSDictionary>(entry), nesting + 1)) frames.push_back(frame);
            if (isRefused) break;
        }
        return frames;
    }
};

WebArchive::WebArchive(const WebResource& mainResource, std::vector<WebResource> subresources,
                       std::vector<WebArchive> subframeArchives)
    : NSObject(new Body(mainResource, std::move(subresources), std::move(subframeArchives))) {}

WebArchive WebArchive::initWithData(const NSData& data) {
    const NSObject list = propertyListWithData(data.bytes(), nullptr, nullptr);
    Reader reader;
    WebArchive archive = reader.read(as<NSDictionary>(list), 1);
    return reader.isRefused ? nullptr : archive;
}

const WebArchive::Body& WebArchive::fields() const {
    static const Body none;
    return body() ? *static_cast<const Body*>(body()) : none;
}

WebResource WebArchive::mainResource() const { return fields().mainResource; }
const std::vector<WebResource>& WebArchive::subresources() const { return fields().subresources; }
const std::vector<WebArchive>& WebArchive::subframeArchives() const { return fields().subframeArchives; }

NSDictionary WebArchive::propertyList() const {
    NSMutableDictionary list;
    if (mainResource()) list.setObject(mainResource().propertyList(), NSString(kMainResource));
    std::vector<NSObject> resources, frames;
    for (const WebResource& resource : subresources()) resources.push_back(resource.propertyList());
    for (const WebArchive& frame : subframeArchives()) frames.push_back(frame.propertyList());
    if (!frames.empty()) list.setObject(NSArray(std::move(frames)), NSString(kSubframeArchives));
    if (!resources.empty()) list.setObject(NSArray(std::move(resources)), NSString(kSubresources));
    return std::move(list).copy();
}

NSData WebArchive::data() const {
    return body() ? dataFromPropertyList(propertyList(), NSPropertyListBinaryFormat_v1_0, nullptr) : nullptr;
}
