#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/bundle/StringsTable.h"

namespace zn {

/// Reads the text form of a strings file in place: `"key" = "value";`, bare words, `key;` alone for
/// a value like its key, both kinds of quotes and of comments. What an escape stands for is never
/// longer than the escape, so the texts stay in the buffer that they were read from.
class StringsParser {
public:
    /// The buffer must hold UTF-8, is written to, and must outlive the entries.
    StringsParser(char* begin, char* end);

    /// Appends the statements in their order; false, with `error()`, at the first mistake.
    bool read(std::vector<StringsTable::Entry>& entries);
    /// What was wrong, with the line.
    std::string error() const;

private:
    bool skipBlanks();
    bool readText(std::string_view& text);
    bool readQuoted(std::string_view& text);
    bool readEscaped(char quote, char* out, std::string_view& text);
    void readEscape(char*& out);
    char32_t readOctal();
    bool readUnicode(char32_t& character);
    bool fail(const char* what);

    char* const begin_;
    char* here_;
    char* const end_;
    /// Line breaks in the buffer that stand for escapes.
    std::ptrdiff_t escapedLines_ = 0;
    const char* wrong_ = nullptr;
    const char* wrongAt_ = nullptr;
};

}  // namespace zn
