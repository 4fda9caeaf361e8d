#include "storage/AttributeTable.h"

#include <QLocale>
#include <QStringList>

namespace orbelan::server {

QString AttributeTable::name(std::int32_t layer)
{
    return QStringLiteral("layer_%1_attributes").arg(layer);
}

QString AttributeTable::quoted(const QString& identifier)
{
    QString inner = identifier;
    inner.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + inner + QLatin1Char('"');
}

QString AttributeTable::columnType(std::int16_t adoType)
{
    switch (adoType) {
    case 2:
    case 3:
    case 16:
    case 17:
    case 18:
    case 19:
    case 20:
    case 21:
        return QStringLiteral("INTEGER");
    case 4:
    case 5:
    case 14:
    case 131:
        return QStringLiteral("REAL");
    default:
        return QStringLiteral("TEXT");
    }
}

QString AttributeTable::createStatement(std::int32_t layer,
                                        const std::vector<messages::FieldRecord>& fields)
{
    QStringList columns{QStringLiteral("element_id INTEGER PRIMARY KEY")};
    for (const messages::FieldRecord& field : fields) {
        columns << quoted(QString::fromStdString(field.name)) + QLatin1Char(' ') +
                       columnType(field.type);
    }
    return QStringLiteral("CREATE TABLE %1 (%2)").arg(quoted(name(layer)), columns.join(u", "));
}

QString AttributeTable::insertStatement(std::int32_t layer,
                                        const std::vector<messages::FieldRecord>& fields)
{
    QStringList columns{QStringLiteral("element_id")};
    QStringList marks{QStringLiteral("?")};
    for (const messages::FieldRecord& field : fields) {
        columns << quoted(QString::fromStdString(field.name));
        marks << QStringLiteral("?");
    }
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(quoted(name(layer)), columns.join(u", "), marks.join(u", "));
}

QString AttributeTable::idList(const std::vector<std::int32_t>& ids)
{
    std::string list;
    for (const std::int32_t id : ids) {
        list += list.empty() ? '[' : ',';
        list += std::to_string(id);
    }
    list = list.empty() ? "[]" : list + ']';
    return QString::fromLatin1(list.data(), static_cast<qsizetype>(list.size()));
}

std::string AttributeTable::text(const QVariant& value)
{
    if (value.isNull()) {
        return {};
    }
    if (value.typeId() == QMetaType::Double) {
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest).toStdString();
    }
    return value.toString().toStdString();
}

} // namespace orbelan::server
