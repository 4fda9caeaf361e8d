#pragma once

// The text of the headless host's lines: values printed in events, and the
// words of commands read back. Strings are double-quoted with C-style escapes
// (\n \r \t \\ \"), other characters as UTF-8.

#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace orbelan::lineformat {

QString quote(const QString& text);

// A value as an event line shows it: numbers in their shortest exact form,
// booleans as true/false, strings quoted, lists as [a,b,c].
QString formatValue(const QVariant& value);

// Splits a command into words: blanks separate words, a double-quoted word
// may hold blanks and escapes. Nothing for an unterminated quote.
std::optional<QStringList> splitWords(const QString& line);

} // namespace orbelan::lineformat
