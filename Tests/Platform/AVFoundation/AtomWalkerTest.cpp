// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Atoms/AtomWalker.h"

#include "Platform/AVFoundation/Atoms/AtomList.h"
#include "Tests/Platform/AVFoundation/MediaItems.h"
#include "Tests/Support/MediaWriter.h"

#include <gtest/gtest.h>
#include <zlib.h>

namespace {

const std::string kTitle = atom("udta", itemList(atom("@nam", dataAtom(1, "Title"))));
const Texts kFound = {{"@nam", "Title"}};

Texts iTunes(std::string_view file) { return textsOf(file, MediaKeySpace::iTunes); }

// A sparse file: the rest of it reads as zeros. Counts what is asked of it.
class SparseSource : public ByteSource {
public:
    void put(uint64_t offset, std::string bytes) { parts_.emplace_back(offset, std::move(bytes)); }

    uint64_t size() const override { return uint64_t(1) << 33; }
    size_t copy(uint64_t offset, char* to, size_t length) override {
        if (offset >= size()) return 0;
        bytesRead += length;
        std::fill(to, to + length, '\0');
        for (const auto& [begin, bytes] : parts_) {
            for (size_t i = 0; i < length; ++i) {
                if (offset + i >= begin && offset + i - begin < bytes.size())
                    to[i] = bytes[offset + i - begin];
            }
        }
        return length;
    }

    uint64_t bytesRead = 0;

private:
    std::vector<std::pair<uint64_t, std::string>> parts_;
};

std::string compressedMovie(std::string_view movie) {
    uLongf length = compressBound(movie.size());
    std::string stream(length, '\0');
    compress(reinterpret_cast<Bytef*>(stream.data()), &length, reinterpret_cast<const Bytef*>(movie.data()),
             movie.size());
    stream.resize(length);
    return atom("cmov", atom("dcom", "zlib") + atom("cmvd", bigEndian(movie.size(), 4) + stream));
}

TEST(AtomWalker, KnowsAFileByItsFirstAtom) {
    for (const char* type : {"ftyp", "moov", "mdat", "free", "skip", "wide", "pnot", "styp"}) {
        const std::string file = atom(type, "") + atom("moov", kTitle);
        EXPECT_EQ(iTunes(file), kFound) << type;
    }
    EXPECT_EQ(iTunes(atom("RIFF", "") + atom("moov", kTitle)), Texts());
}

TEST(AtomWalker, StepsOverMediaDataHoweverLong) {
    SparseSource source;
    const std::string start =
        atom("ftyp", "M4A ") + bigEndian(1, 4) + "mdat" + bigEndian(uint64_t(1) << 32, 8);
    source.put(0, start);
    source.put(start.size() - 16 + (uint64_t(1) << 32), atom("moov", kTitle));
    std::vector<MediaItem> items;
    readAtomFile(source, items);
    EXPECT_EQ(textsIn(items, MediaKeySpace::iTunes), kFound);
    EXPECT_LT(source.bytesRead, 1000u);
}

TEST(AtomWalker, LetsTheLastAtomLeaveItsLengthOpen) {
    std::string movie = atom("moov", kTitle);
    movie.replace(0, 4, bigEndian(0, 4));
    EXPECT_EQ(iTunes(atom("ftyp", "M4A ") + movie), kFound);
}

TEST(AtomWalker, ReadsWhatIsThereOfAFileThatWasCutOff) {
    const std::string file =
        atom("ftyp", "M4A ") + atom("moov", kTitle + atom("trak", std::string(500, 't')));
    EXPECT_EQ(iTunes(file.substr(0, file.size() - 400)), kFound);
}

TEST(AtomWalker, EndsAtTheFirstFragmentBehindTheMovie) {
    const std::string fragment = atom("moof", "") + atom("mdat", "sound");
    EXPECT_EQ(iTunes(atom("ftyp", "iso5") + atom("moov", kTitle) + fragment + atom("moov", kTitle)), kFound);
    EXPECT_EQ(iTunes(atom("styp", "msdh") + fragment + atom("moov", kTitle)), kFound);
}

TEST(AtomWalker, DoesNotReadTheMetadataOfTracks) {
    EXPECT_EQ(iTunes(movieFile(atom("trak", kTitle))), Texts());
}

TEST(AtomWalker, ReadsACompressedMovie) {
    const std::string file = atom("ftyp", "qt  ") + atom("moov", compressedMovie(atom("moov", kTitle)));
    EXPECT_EQ(iTunes(file), kFound);
}

TEST(AtomWalker, InflatesOneMovieAndNoneInsideOfIt) {
    const std::string inner = atom("moov", compressedMovie(atom("moov", kTitle)));
    EXPECT_EQ(iTunes(atom("ftyp", "qt  ") + atom("moov", compressedMovie(inner))), Texts());
    EXPECT_EQ(iTunes(atom("ftyp", "qt  ") + inner + inner), kFound);
}

TEST(AtomWalker, SurvivesADamagedCompressedMovie) {
    std::string file = atom("ftyp", "qt  ") + atom("moov", compressedMovie(atom("moov", kTitle)));
    file[file.size() - 10] ^= 0x55;
    EXPECT_LE(iTunes(file).size(), 1u);
    EXPECT_EQ(iTunes(atom("ftyp", "qt  ") + atom("moov", atom("cmov", atom("cmvd", "abcdefgh")))), Texts());
}

TEST(AtomWalker, EndsALevelAtALengthThatCannotBe) {
    for (uint64_t length : {0, 2, 7}) {
        std::string bad = atom("free", "");
        bad.replace(0, 4, bigEndian(length, 4));
        EXPECT_EQ(iTunes(movieFile(kTitle + bad + kTitle)), kFound) << length;
    }
    const std::string tooShort = bigEndian(1, 4) + "free" + bigEndian(15, 8);
    EXPECT_EQ(iTunes(movieFile(kTitle + tooShort + kTitle)), kFound);
    const std::string tooLong = bigEndian(1, 4) + "free" + bigEndian(UINT64_MAX, 8);
    EXPECT_EQ(iTunes(movieFile(kTitle + tooLong + kTitle)), kFound);
}

TEST(AtomWalker, CutsAnAtomToItsParent) {
    std::string title = atom("@nam", dataAtom(1, "Title"));
    title.replace(8, 4, bigEndian(0x7FFFFFFF, 4));
    EXPECT_EQ(iTunes(movieFile(atom("udta", itemList(title)))), kFound);
}

TEST(AtomWalker, EndsHoweverManyAtomsThereAre) {
    SparseSource source;
    source.put(0, atom("ftyp", "M4A "));
    std::string empty;
    for (int i = 0; i < 200'000; ++i) empty += atom("free", "");
    MemorySource many(empty);
    std::vector<MediaItem> items;
    AtomAllowance allowance;
    AtomList list(many, {0, many.size()}, allowance);
    unsigned count = 0;
    for (Atom child; list.next(child);) ++count;
    EXPECT_EQ(count, 100'000u);
}

TEST(AtomWalker, TakesOnlySoManyBytesOfValues) {
    SparseSource source;
    AtomAllowance allowance;
    EXPECT_EQ(allowance.values.take(source, {0, source.size()}).size(), 64u << 20);
    EXPECT_EQ(allowance.values.take(source, {0, 10}), "");
}

} // namespace
