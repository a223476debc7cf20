// SPDX-License-Identifier: Apache-2.0
//
// The building blocks of media files, for tests: each function makes the bytes of one block.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

std::string bigEndian(uint64_t number, unsigned width);
std::string littleEndian(uint64_t number, unsigned width);
std::string utf16BigEndian(std::u16string_view text);

// QuickTime and ISO files. In the names of atoms "@" stands for the byte A9.
std::string atom(std::string_view type, std::string_view body);
std::string dataAtom(unsigned type, std::string_view value);
// A `meta` atom of the handler "mdir"; with version and flags or, as QuickTime has it, without.
std::string itemList(std::string_view items, bool isFull = true);
// A `meta` atom of the handler "mdta": names of keys and the bytes of their `data` atoms.
std::string keyedItemList(const std::vector<std::pair<std::string, std::string>>& items);
// One of the texts of an international atom.
std::string languageText(unsigned language, std::string_view text);
// An atom of 3GP files: version and flags, language, text.
std::string isoText(std::string_view type, std::string_view text);
// A file with the atoms in its movie.
std::string movieFile(std::string_view atoms, std::string_view brand = "qt  ");

// ID3 tags.
std::string syncsafe(uint64_t number);
std::string id3Frame(std::string_view identifier, std::string_view body, unsigned flags = 0,
                     unsigned version = 3);
std::string id3Tag(unsigned version, std::string_view frames, unsigned flags = 0);

// RIFF's chunk, padded to an even length.
std::string riffChunk(std::string_view name, std::string_view body);
std::string aiffChunk(std::string_view name, std::string_view body);

std::string vorbisComment(std::initializer_list<std::string_view> fields);
// A page that holds whole packets of one stream.
std::string oggPage(uint32_t stream, unsigned flags, std::initializer_list<std::string_view> packets);

// An element of Matroska; its length in one byte or, when it is longer, in eight.
std::string element(uint32_t identifier, std::string_view body);
