// The text of an XML file: its encoding, and navigation by offsets.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "shell/host/host_types.h"

namespace standin {

enum class Encoding : u8 { kUtf8, kUtf16LittleEndian, kUtf16BigEndian, kLatin1, kWindows1252 };

struct TextFormat {
    Encoding encoding = Encoding::kUtf8;
    bool byteOrderMark = false;
};

struct DecodedText {
    std::string text;       // UTF-8, without a byte order mark
    TextFormat format;      // how the bytes were written
    std::string problem;    // why the bytes are not text; empty if they are
    std::size_t line = 1;   // where, from 1
    std::string warning{};  // why they were not read as declared; usually empty
};

// Converts the bytes of an XML file to UTF-8, by byte order mark or by the XML declaration.
DecodedText DecodeXml(std::string bytes);

// The reverse. A character that the encoding lacks becomes a character reference.
std::string EncodeXml(std::string text, TextFormat format);

// The line of the offset, from 1.
std::size_t LineAt(std::string_view text, std::size_t offset);

// The offset just after the node (element, comment, instruction, CDATA) whose '<' is at begin; the
// text's size if it does not end. The text must be well-formed.
std::size_t NodeEnd(std::string_view text, std::size_t begin);

// The offset just after the '>' of the tag whose '<' is at begin.
std::size_t TagEnd(std::string_view text, std::size_t begin);

// The name of the element whose text begins with '<'.
std::string_view ElementName(std::string_view element);

// An attribute's value as written in the element's first tag; empty when it has none.
std::string_view AttributeText(std::string_view element, std::string_view name);

// The element with the attribute set; added when missing, dropped when value is empty.
std::string WithAttribute(std::string_view element, std::string_view name, std::string_view value);

// The text escaped for use between tags.
std::string Escaped(std::string_view text);

}  // namespace standin
