#include "storage/FieldText.h"

#include "storage/AttributeTable.h"

#include <QVariant>

#include <sqlite3.h>

#include <cstring>

namespace orbelan::server {

namespace {

// In UTF-8 the capitals À-Þ are 0xC3 followed by 0x80-0x9E, their small
// letters 0xC3 followed by 0xA0-0xBE; 0xC3 0x97 is the sign ×.
constexpr unsigned char kLatin1Lead = 0xC3;
constexpr unsigned char kMultiplicationSign = 0x97;
constexpr unsigned char kCaseDistance = 0x20;

bool latin1Capital(unsigned char second)
{
    return second >= 0x80 && second <= 0x9E && second != kMultiplicationSign;
}

void foldInPlace(char* text, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i) {
        auto& byte = reinterpret_cast<unsigned char&>(text[i]);
        if (byte >= 'A' && byte <= 'Z') {
            byte = static_cast<unsigned char>(byte + kCaseDistance);
        } else if (byte == kLatin1Lead && i + 1 < size) {
            auto& second = reinterpret_cast<unsigned char&>(text[i + 1]);
            if (latin1Capital(second)) {
                second = static_cast<unsigned char>(second + kCaseDistance);
            }
        }
    }
}

// Numbers take the text the viewer is sent.
void numberText(sqlite3_context* context, const QVariant& number)
{
    const std::string text = AttributeTable::text(number);
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

// Called for every row a condition looks at: a text is copied once, into
// the result, and folded there.
void fieldText(sqlite3_context* context, int, sqlite3_value** arguments)
{
    sqlite3_value* value = arguments[0];
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        numberText(context, QVariant(static_cast<qlonglong>(sqlite3_value_int64(value))));
        return;
    case SQLITE_FLOAT:
        numberText(context, QVariant(sqlite3_value_double(value)));
        return;
    case SQLITE_NULL:
        sqlite3_result_text(context, "", 0, SQLITE_STATIC);
        return;
    default:
        break;
    }
    const auto* text = sqlite3_value_text(value);
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    auto* result = static_cast<char*>(sqlite3_malloc64(size + 1));
    if (!result) {
        sqlite3_result_error_nomem(context);
        return;
    }
    if (size > 0) {
        std::memcpy(result, text, size);
    }
    foldInPlace(result, size);
    sqlite3_result_text64(context, result, size, sqlite3_free, SQLITE_UTF8);
}

} // namespace

QString FieldText::of(const QString& column)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(kFunction), column);
}

std::string FieldText::folded(std::string_view utf8)
{
    std::string result(utf8);
    foldInPlace(result.data(), result.size());
    return result;
}

bool FieldText::install(sqlite3* connection)
{
    return sqlite3_create_function_v2(connection, kFunction, 1,
                                      SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                      nullptr, fieldText, nullptr, nullptr, nullptr) == SQLITE_OK;
}

} // namespace orbelan::server
