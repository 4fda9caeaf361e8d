#include "orbelan-viewer/LineFormat.h"

#include <QSequentialIterable>

#include <array>
#include <charconv>

namespace orbelan::lineformat {

namespace {

constexpr std::array<std::pair<QChar, QChar>, 5> kEscapes = {{
    {'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}, {'\\', '\\'}, {'"', '"'},
}};

template <typename Float>
QString shortest(Float value)
{
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return QString::fromLatin1(digits.data(), static_cast<qsizetype>(end - digits.data()));
}

QString formatList(const QVariant& value)
{
    QStringList items;
    for (const QVariant& item : value.value<QSequentialIterable>()) {
        items << formatValue(item);
    }
    return '[' + items.join(',') + ']';
}

std::optional<QChar> unescape(QChar escaped)
{
    for (const auto& [character, letter] : kEscapes) {
        if (letter == escaped) {
            return character;
        }
    }
    return std::nullopt;
}

} // namespace

QString quote(const QString& text)
{
    QString quoted = QStringLiteral("\"");
    for (const QChar character : text) {
        const auto escape = std::find_if(kEscapes.begin(), kEscapes.end(),
                                         [character](const auto& entry) { return entry.first == character; });
        if (escape != kEscapes.end()) {
            quoted += '\\';
            quoted += escape->second;
        } else {
            quoted += character;
        }
    }
    return quoted + '"';
}

QString formatValue(const QVariant& value)
{
    switch (value.metaType().id()) {
    case QMetaType::Bool: return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QMetaType::Float: return shortest(value.toFloat());
    case QMetaType::Double: return shortest(value.toDouble());
    case QMetaType::QString:
    case QMetaType::QFont: return quote(value.toString());
    default: break;
    }
    if (value.canConvert<QVariantList>()) {
        return formatList(value);
    }
    return value.toString();
}

std::optional<QStringList> splitWords(const QString& line)
{
    QStringList words;
    QString word;
    bool inWord = false;
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar character = line[i];
        if (quoted && character == '\\' && i + 1 < line.size()) {
            word += unescape(line[i + 1]).value_or(line[i + 1]);
            ++i;
        } else if (character == '"' && (quoted || !inWord)) {
            // Quotes hold a whole word; inside a word they are its own
            // characters, as in the list of texts [a,""].
            quoted = !quoted;
            inWord = true;
        } else if (!quoted && character.isSpace()) {
            if (inWord) {
                words << word;
            }
            word.clear();
            inWord = false;
        } else {
            word += character;
            inWord = true;
        }
    }
    if (quoted) {
        return std::nullopt;
    }
    if (inWord) {
        words << word;
    }
    return words;
}

} // namespace orbelan::lineformat
