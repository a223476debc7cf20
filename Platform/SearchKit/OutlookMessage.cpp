// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/OutlookMessage.h"

#include "Platform/AppKit/CompoundFile/CompoundFile.h"
#include "Platform/Foundation/LittleEndian.h"
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/AppKit/RTF/CompressedRTF.h"
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

namespace {

// Properties, by the numbers in the names of their streams.
constexpr const char *kSubject = "0037", *kSender = "0C1A", *kSenderAddress = "5D01", *kTo = "0E04",
                     *kCopies = "0E03", *kBlindCopies = "0E02", *kBody = "1000", *kHTML = "1013",
                     *kRTF = "1009", *kAttachmentName = "3707", *kShortAttachmentName = "3704";
constexpr uint32_t kCodePage = 0x3FFD0003, kInternetCodePage = 0x3FDE0003;

// The stream with the list of the properties that are numbers; the head of a message's list is longer than
// others'.
constexpr std::string_view kNumbers = "__properties_version1.0";
constexpr size_t kListHead = 32, kListEntry = 16;

class OutlookMessage {
public:
    OutlookMessage(CompoundFile file, std::u16string& text, NSString& why)
        : file_(std::move(file)), text_(text), why_(why) {}

    ImportStatus read() {
        for (const char* field : {kSubject, kSender, kSenderAddress, kTo, kCopies, kBlindCopies})
            appendLine(textOf("", field));
        readBody();
        for (const std::string& storage : file_.storages()) {
            if (!storage.starts_with("__attach_version1.0_#")) continue;
            const std::u16string name = textOf(storage + "/", kAttachmentName);
            appendLine(name.empty() ? textOf(storage + "/", kShortAttachmentName) : name);
        }
        return status_;
    }

private:
    void appendLine(const std::u16string& line) {
        if (!line.empty()) text_ += line + u'\n';
    }

    std::string_view property(const std::string& storage, const char* number, const char* type) {
        return file_.stream(storage + "__substg1.0_" + number + type);
    }

    // In Unicode, or in the code page that the message names.
    std::u16string textOf(const std::string& storage, const char* number) {
        std::u16string text;
        appendDecoded(text, property(storage, number, "001F"), NSUTF16LittleEndianStringEncoding);
        if (text.empty()) appendDecoded(text, property(storage, number, "001E"), encoding(kCodePage));
        return text;
    }

    NSStringEncoding encoding(uint32_t property) {
        const std::string_view list = file_.stream(kNumbers);
        for (size_t at = kListHead; at + kListEntry <= list.size(); at += kListEntry) {
            if (uint32At(list, at) != property) continue;
            const NSStringEncoding encoding = encodingForCodePage(uint32At(list, at + 8));
            if (isStringEncodingAvailable(encoding)) return encoding;
        }
        return NSWindowsCP1252StringEncoding;
    }

    // One body in up to three forms.
    void readBody() {
        const std::u16string plain = textOf("", kBody);
        const std::string_view html = property("", kHTML, "0102");
        if (!plain.empty()) {
            appendLine(plain);
        } else if (!html.empty()) {
            std::u16string page;
            appendDecoded(page, html, encoding(kInternetCodePage));
            readAs(NSHTMLTextDocumentType, "\xEF\xBB\xBF" + toUTF8(page));
        } else if (const std::string rtf = decompressedRTF(property("", kRTF, "0102")); !rtf.empty()) {
            readAs(NSRTFTextDocumentType, rtf);
        }
    }

    void readAs(const char16_t* type, std::string bytes) {
        if (importData(type, NSData(std::move(bytes)), text_, why_) == ImportStatus::missingReader)
            status_ = ImportStatus::missingReader;
        text_ += u'\n';
    }

    CompoundFile file_;
    std::u16string& text_;
    NSString& why_;
    ImportStatus status_ = ImportStatus::read;
};

} // namespace

ImportStatus importOutlookMessage(ImportedFile& file, std::u16string& text, NSString& why) {
    if (!file.data()) return importFailed(why, kCannotBeRead);
    auto compound = CompoundFile::open(file.data().bytes());
    if (!compound || !compound->contains(kNumbers)) return importFailed(why, kOfAnotherKind);
    return OutlookMessage(std::move(*compound), text, why).read();
}
