#include "ui/FieldKeyFilter.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace orbelan {

namespace {

constexpr int kFirstPrintable = 32;
constexpr int kDoubleQuote = 34;
constexpr int kSingleQuote = 39;

enum class KeyRule { Signed, Unsigned, Decimal, Text, Nothing };

KeyRule ruleOf(int fieldType)
{
    switch (fieldType) {
    case 2: case 3: case 16: case 20:
        return KeyRule::Signed;
    case 17: case 18: case 19: case 21:
        return KeyRule::Unsigned;
    case 4: case 5: case 14: case 131:
        return KeyRule::Decimal;
    case 8: case 129: case 130: case 200: case 201: case 202: case 203:
        return KeyRule::Text;
    default:
        return KeyRule::Nothing;
    }
}

} // namespace

FieldKeyFilter::FieldKeyFilter(int fieldType, QLineEdit& box)
    : QObject(&box),
      fieldType_(fieldType),
      box_(box)
{
    box.installEventFilter(this);
}

bool FieldKeyFilter::accepts(const QString& text, int fieldType, int key)
{
    const KeyRule rule = ruleOf(fieldType);
    switch (rule) {
    case KeyRule::Nothing:
        return false;
    case KeyRule::Text:
        return key != kDoubleQuote && key != kSingleQuote;
    default:
        break;
    }
    if (key < kFirstPrintable || (key >= '0' && key <= '9')) {
        return true;
    }
    if (key == '-') {
        return rule != KeyRule::Unsigned && text.isEmpty();
    }
    return key == '.' && rule == KeyRule::Decimal && !text.contains(QLatin1Char('.'));
}

// Keys that type no character (arrows, Home ...) are never refused.
bool FieldKeyFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &box_ || event->type() != QEvent::KeyPress) {
        return false;
    }
    const QString typed = static_cast<QKeyEvent*>(event)->text();
    if (typed.isEmpty()) {
        return false;
    }
    const int key = typed.front().unicode() < 256 ? typed.front().unicode() : 256;
    return !accepts(box_.text(), fieldType_, key);
}

} // namespace orbelan
