// SPDX-License-Identifier: Apache-2.0
//
// The smallest host: has texttool read one document and shows what came of it.
//
//     host TEXTTOOL KEY DOCUMENT      for instance: host /usr/bin/texttool -RTFPath memo.rtf
//
// Ends with status 0 when the document was read.
#include <Platform/Foundation/NSData.h>
#include <Platform/Foundation/NSPathUtilities.h>
#include <ZORFoundation/Source/ZORResultRecord.h>

#include <cstdio>
#include <cstdlib>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// The record that the tool leaves in a file of ours; empty when it left none.
NSData runTool(char* tool, char* key, char* document) {
    char recordPath[] = "/tmp/host-XXXXXX";
    close(mkstemp(recordPath));
    setenv("OutPath", recordPath, 1);
    char* arguments[] = {tool, key, document, nullptr};
    pid_t process = 0;
    if (posix_spawn(&process, tool, nullptr, nullptr, arguments, environ) == 0) waitpid(process, nullptr, 0);
    NSData record = NSData::dataWithContentsOfFile(NSString::fromUTF8(recordPath), 0, nullptr);
    unlink(recordPath);
    return record;
}

} // namespace

int main(int count, char** words) {
    if (count != 4) {
        fprintf(stderr, "usage: host TEXTTOOL KEY DOCUMENT\n");
        return 64;
    }
    NSError why;
    auto record = ZORResultRecord::recordWithData(runTool(words[1], words[2], words[3]).bytes(), &why);
    if (!record) {
        fprintf(stderr, "no answer: %s\n", why.localizedDescription().utf8().c_str());
        return 1;
    }
    if (record->kind != ZORResultRecord::Kind::success) {
        fprintf(stderr, "%s\n", record->text().utf8().c_str());
        return 1;
    }
    printf("%s: %zu characters\n", record->title.utf8().c_str(), record->string.length());
    return 0;
}
