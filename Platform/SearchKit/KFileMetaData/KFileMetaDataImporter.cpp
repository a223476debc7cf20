// SPDX-License-Identifier: Apache-2.0
//
// An importer for what the plug-ins of KFileMetaData read, which desktops index files with. A library like
// any other importer's, ImporterModule.h, built where KFileMetaData's headers are.
#include "Platform/SearchKit/ImporterModule.h"

#include <KFileMetaData/Extractor>
#include <KFileMetaData/ExtractorCollection>
#include <KFileMetaData/MimeUtils>
#include <KFileMetaData/SimpleExtractionResult>

#include <QCoreApplication>
#include <QFile>
#include <QMimeDatabase>

namespace {

constexpr auto kWanted = KFileMetaData::ExtractionResult::ExtractPlainText;

QString textOf(const QString& path, const QString& type, const KFileMetaData::ExtractorCollection& all) {
    QString text;
    for (KFileMetaData::Extractor* extractor : all.fetchExtractors(type)) {
        KFileMetaData::SimpleExtractionResult result(path, type, kWanted);
        extractor->extract(&result);
        text += result.text() + QLatin1Char('\n');
    }
    return text;
}

} // namespace

extern "C" __attribute__((visibility("default"))) int
texttool_import_text(const char* path, texttool_append append, void* context) {
    // The plug-ins are looked for where an application's are.
    int argumentCount = 1;
    char name[] = "texttool", *arguments[] = {name, nullptr};
    const QCoreApplication application(argumentCount, arguments);

    const QString file = QFile::decodeName(path);
    const QMimeDatabase kinds;
    const QString type = KFileMetaData::MimeUtils::strictMimeType(file, kinds).name();
    const KFileMetaData::ExtractorCollection all;
    if (all.fetchExtractors(type).isEmpty()) return 1;
    const QByteArray text = textOf(file, type, all).toUtf8();
    append(context, text.constData(), size_t(text.size()));
    return 0;
}
