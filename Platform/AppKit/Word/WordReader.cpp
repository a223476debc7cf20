// SPDX-License-Identifier: Apache-2.0
//
// The reader of binary Word documents, Word 6 to Word 2003 and what later programs write in that format.
#include "Platform/AppKit/DocumentReader.h"

#include "Platform/AppKit/CompoundFile/CompoundFile.h"
#include "Platform/AppKit/CompoundFile/PropertySet.h"
#include "Platform/AppKit/Keywords.h"
#include "Platform/AppKit/Word/FileInformation.h"
#include "Platform/AppKit/Word/Modifiers.h"
#include "Platform/AppKit/Word/Streams.h"
#include "Platform/AppKit/Word/TextReader.h"
#include "Platform/Foundation/LittleEndian.h"

#include <cstdlib>

using namespace Word;

namespace {

constexpr double kTwipsInPoint = 20;

void readProperties(CompoundFile& file, DocumentInfo& info) {
    PropertySet summary(file.stream("\5SummaryInformation"));
    info.title = summary.text(SummaryProperty::title);
    info.author = summary.text(SummaryProperty::author);
    info.subject = summary.text(SummaryProperty::subject);
    info.comment = summary.text(SummaryProperty::comments);
    info.editor = summary.text(SummaryProperty::lastAuthor);
    info.keywords = splitKeywords(summary.text(SummaryProperty::keywords));
    info.creationTime = summary.time(SummaryProperty::creationTime);
    info.modificationTime = summary.time(SummaryProperty::lastSavedTime);

    PropertySet documentSummary(file.stream("\5DocumentSummaryInformation"));
    info.company = documentSummary.text(DocumentSummaryProperty::company);
    info.manager = documentSummary.text(DocumentSummaryProperty::manager);
    info.category = documentSummary.text(DocumentSummaryProperty::category);
}

// The page of the first section. A document whose sections are lost has none.
void readPage(const FileInformation& information, const Streams& streams, DocumentInfo& info) {
    constexpr size_t kSectionSize = 12, kOffsetOffset = 2;
    PositionTable sections = information.positionTable(Table::sections, kSectionSize, streams.table());
    if (sections.count() == 0) return;
    size_t offset = uint32At(sections.entry(0), kOffsetOffset);
    SectionModifiers section;
    section.apply(slice(streams.main(), offset + 2, uint16At(streams.main(), offset)), information.isOld);
    info.paperSize = DocumentSize{section.pageWidth / kTwipsInPoint, section.pageHeight / kTwipsInPoint};
    info.leftMargin = section.leftMargin / kTwipsInPoint;
    info.rightMargin = section.rightMargin / kTwipsInPoint;
    info.topMargin = std::abs(section.topMargin) / kTwipsInPoint;
    info.bottomMargin = std::abs(section.bottomMargin) / kTwipsInPoint;
}

void readBody(const FileInformation& information, Streams& streams, Deadline& deadline,
              DocumentContents& contents) {
    contents.info.converted = -1;
    readPage(information, streams, contents.info);
    contents.text = TextReader(information, streams, deadline).read();
}

std::string_view mainStream(CompoundFile& file) {
    std::string_view stream = file.stream("WordDocument");
    // The main stream is written first: where a cut took the directory away it is still found there.
    if (stream.data() == nullptr && file.directoryIsDamaged()) return file.firstSectors();
    return stream;
}

// Documents of Word 2, and some of Word 6, are the bare main stream.
ReadStatus readBareDocument(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    std::optional<FileInformation> information = FileInformation::read(bytes);
    if (!information || !information->isOld) return ReadStatus::wrongKind;
    if (information->isEncrypted) return ReadStatus::locked;
    if (information->textOffset >= bytes.size()) return ReadStatus::wrongKind;
    Streams streams(bytes);
    readBody(*information, streams, deadline, contents);
    return ReadStatus::read;
}

} // namespace

ReadStatus readDocFormat(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    std::optional<CompoundFile> file = CompoundFile::open(bytes);
    if (!file) return readBareDocument(bytes, deadline, contents);
    if (file->contains("EncryptedPackage")) return ReadStatus::locked; // a newer format's document inside
    std::string_view main = mainStream(*file);
    std::optional<FileInformation> information = FileInformation::read(main);
    if (!information) return ReadStatus::wrongKind;
    if (information->isEncrypted) return ReadStatus::locked;
    Streams streams(*file, *information, main);
    readProperties(*file, contents.info);
    readBody(*information, streams, deadline, contents);
    return ReadStatus::read;
}
