#pragma once

#include <QString>

#include <string>
#include <string_view>

struct sqlite3;

namespace orbelan::server {

// Attribute values are compared as the viewer shows them: integers in
// decimal, reals in their shortest exact form, a missing value as the empty
// text, and texts without regard to case over the whole Latin-1 range (A-Z
// and À-Þ but ×, as their small letters) while accents count (ñ is not n).
class FieldText {
public:
    // The name of the SQL function field_text(value) that gives a value's
    // folded text; indexes on text columns are made on it.
    static constexpr const char* kFunction = "field_text";

    // The SQL expression of a column's folded text.
    static QString of(const QString& column);
    // The text with every capital of Latin-1 made small. The folding keeps
    // the length in bytes and in characters, and leaves every other byte,
    // malformed UTF-8 included, as it is.
    static std::string folded(std::string_view utf8);
    // Makes field_text known to the connection; false when SQLite refuses.
    static bool install(sqlite3* connection);
};

} // namespace orbelan::server
