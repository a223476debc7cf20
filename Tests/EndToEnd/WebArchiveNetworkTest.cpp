// SPDX-License-Identifier: Apache-2.0
//
// Offline means offline: no packet goes out, whatever a page tries.
#include "Tests/EndToEnd/WebArchiveTesting.h"

#include "Tests/Support/NetworkLog.h"

#include <algorithm>

namespace {

using Packets = std::vector<std::string>;

// Everything that a page can do to reach another machine, or this one, without scripts. The mark % stands for
// the address.
constexpr const char* kMarkup = R"html(
<meta http-equiv=x-dns-prefetch-control content=on>
<meta http-equiv=refresh content='0;url=%/refresh'>
<link rel=preconnect href='%'><link rel=dns-prefetch href='%'><link rel=prefetch href='%/prefetch'>
<link rel=preload as=script href='%/preload'><link rel=modulepreload href='%/module'>
<link rel=prerender href='%/prerender'><link rel=stylesheet href='%/sheet'><link rel=icon href='%/icon'>
<link rel=manifest href='%/manifest'><link rel=apple-touch-icon href='%/touch'>
<style>@import '%/import'; @font-face{font-family:x;src:url(%/font)}
p{font-family:x;background:url(%/background);cursor:url(%/cursor),auto;list-style-image:url(%/marker)}
p::before{content:url(%/content)}</style>
<p>text<img src='%/image' srcset='%/set 2x'><picture><source srcset='%/source'><img></picture>
<input type=image src='%/input'><table background='%/table'></table>
<iframe src='%/frame'></iframe><iframe srcdoc="<meta http-equiv=refresh content='0;url=%/inner'><img src='%/in'>"></iframe>
<object data='%/object'></object><embed src='%/embed'><applet archive='%/applet' code=a></applet>
<video src='%/video' poster='%/poster'><track default src='%/track'></video><audio src='%/audio' autoplay></audio>
<svg><image href='%/svg'/><use href='%/use#a'/><filter><feImage href='%/filter'/></filter></svg>
<math><mglyph src='%/glyph'/></math>
<form id=form method=post action='%/form'><button autofocus>b</button></form><a id=a ping='%/ping' href='%/link'>link</a>
)html";

constexpr const char* kScript = R"js(<script>
var tryTo = f => { try { f(); } catch (refusal) {} };
tryTo(() => fetch('%/fetch', {mode: 'no-cors'}).catch(() => 0));
tryTo(() => navigator.sendBeacon('%/beacon', 'x'));
tryTo(() => new WebSocket('%/socket'.replace('http', 'ws')));
tryTo(() => new EventSource('%/events'));
tryTo(() => new WebTransport('%/transport'.replace('http:', 'https:')));
tryTo(() => { new Image().src = '%/new-image'; });
tryTo(() => { const r = new XMLHttpRequest(); r.open('POST', '%/xhr'); r.send('x'); });
tryTo(() => import('%/import.js').catch(() => 0));
tryTo(() => navigator.serviceWorker.register('%/service.js').catch(() => 0));
tryTo(() => new Worker(URL.createObjectURL(new Blob(["try{new WebSocket('%/ws'.replace('http','ws'))}catch(e){}"
    + "fetch('%/worker').catch(()=>0);importScripts('%/scripts')"]))));
tryTo(() => { const c = new RTCPeerConnection({iceServers: [{urls: 'stun:9.8.7.6'}, {urls: 'stun:there.test'}]});
    c.createDataChannel('x'); c.createOffer().then(o => c.setLocalDescription(o)); });
tryTo(() => open('%/window'));
tryTo(() => document.getElementById('form').submit());
tryTo(() => document.getElementById('a').click());
setTimeout(() => { tryTo(() => { location = '%/location'; }); }, 50);
</script>)js";

std::string at(std::string text, const std::string& address) {
    for (size_t mark = 0; (mark = text.find('%', mark)) != std::string::npos; mark += address.size())
        text.replace(mark, 1, address);
    return text;
}

std::string eagerPage() {
    std::string html;
    for (const char* address :
         {"http://9.8.7.6", "https://9.8.7.6", "http://there.test", "https://there.test",
          "http://127.0.0.1:8099", "http://localhost:8099", "ftp://9.8.7.6"})
        html += at(kMarkup, address) + at(kScript, address);
    return html;
}

class OwnNetwork : public WebArchives {
protected:
    std::optional<Packets> packetsOf(const std::string& file, const std::string& preferred,
                                     const char* scripts) {
        ToolCommand command{.arguments = {"-WebArchivePath", file}, .environment = preferences(preferred)};
        command.environment["RetryWithJavaScript"] = scripts;
        command.environment["OutPath"] = path("record");
        return packetsSentBy(command);
    }
};

bool contains(const Packets& packets, const char* packet) {
    return std::count(packets.begin(), packets.end(), packet) > 0;
}

// Where names are looked up by a service of the system, no question of the tool's own goes out.
bool asksNameServersItself() { return readFile("/etc/nsswitch.conf").find("resolve") == std::string::npos; }

TEST_F(OwnNetwork, SeesNotOnePacketOfAnOfflinePageWithScriptsOffOrOn) {
    const std::string file = writePage(eagerPage());
    for (const char* scripts : {"NO", "YES"}) {
        const auto packets =
            packetsOf(file, "{LkTextToolForceOffline=YES; LkTextToolWebArchiveTimeout=5;}", scripts);
        if (!packets)
            GTEST_SKIP() << "NOT RUN: this system gives no network of one's own (unshare, ip, veth)";
        EXPECT_EQ(*packets, Packets()) << "scripts: " << scripts;
        EXPECT_NE(stringIn(recordOf(readFile(path("record"))), u"string").find("text"), std::string::npos);
    }
}

// The log does hear: online the same page asks for what it lacks, but by the tool only, which speaks HTTP.
TEST_F(OwnNetwork, HearsTheSamePageOnline) {
    const auto packets = packetsOf(writePage(eagerPage()), "{LkTextToolWebArchiveTimeout=5;}", "NO");
    if (!packets) GTEST_SKIP() << "NOT RUN: this system gives no network of one's own (unshare, ip, veth)";
    for (const char* packet : {"TCP 9.8.7.6:80", "TCP 9.8.7.6:443", "TCP 127.0.0.1:8099"})
        EXPECT_TRUE(contains(*packets, packet)) << packet;
    EXPECT_TRUE(contains(*packets, "DNS there.test") || !asksNameServersItself());
}

} // namespace
