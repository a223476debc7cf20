// SPDX-License-Identifier: Apache-2.0
//
// The program's own information property list, in a section of the executable: a background-only agent
// without a bundle.
#include "Source/Tools/texttool/Settings.h"

__attribute__((section("__info_plist"), used)) static const char kInformationList[] =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>CFBundleDevelopmentRegion</key>
	<string>English</string>
	<key>CFBundleIdentifier</key>
	<string>)" TEXTTOOL_HOST_DOMAIN R"(.texttool</string>
	<key>CFBundleInfoDictionaryVersion</key>
	<string>6.0</string>
	<key>LSBackgroundOnly</key>
	<true/>
</dict>
</plist>
)";
