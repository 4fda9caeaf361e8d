#include "storage/FieldText.h"

#include "storage/AttributeTable.h"

#include <QVariant>

#include <sqlite3.h>

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

// Numbers and the missing value take the text the viewer is sent.
std::string textOf(sqlite3_value* value)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return AttributeTable::text(QVariant(static_cast<qlonglong>(sqlite3_value_int64(value))));
    case SQLITE_FLOAT:
        return AttributeTable::text(QVariant(sqlite3_value_double(value)));
    case SQLITE_NULL:
        return {};
    default:
        break;
    }
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text ? std::string(text, static_cast<std::size_t>(sqlite3_value_bytes(value))) : std::string();
}

void fieldText(sqlite3_context* context, int, sqlite3_value** arguments)
{
    const std::string text = FieldText::folded(textOf(arguments[0]));
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

} // namespace

QString FieldText::of(const QString& column)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(kFunction), column);
}

std::string FieldText::folded(std::string_view utf8)
{
    std::string result(utf8);
    for (std::size_t i = 0; i < result.size(); ++i) {
        auto& byte = reinterpret_cast<unsigned char&>(result[i]);
        if (byte >= 'A' && byte <= 'Z') {
            byte = static_cast<unsigned char>(byte + kCaseDistance);
        } else if (byte == kLatin1Lead && i + 1 < result.size()) {
            auto& second = reinterpret_cast<unsigned char&>(result[i + 1]);
            if (latin1Capital(second)) {
                second = static_cast<unsigned char>(second + kCaseDistance);
            }
        }
    }
    return result;
}

bool FieldText::install(sqlite3* connection)
{
    return sqlite3_create_function_v2(connection, kFunction, 1,
                                      SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                      nullptr, fieldText, nullptr, nullptr, nullptr) == SQLITE_OK;
}

} // namespace orbelan::server
