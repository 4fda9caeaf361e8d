#include "session/InformationFields.h"

#include "model/layer.h"

namespace orbelan {

namespace {

const QString kParagraph = QStringLiteral("\r\n\r\n");

QString withoutBlanks(const std::string& text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) {
        return {};
    }
    return QString::fromStdString(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

} // namespace

std::vector<InformationField> informationFields(const layer& mapLayer,
                                                const std::vector<messages::TypedValue>& values)
{
    std::vector<InformationField> fields;
    std::int32_t position = 0;
    for (const messages::TypedValue& value : values) {
        const Campo* field = mapLayer.Campos().Item(++position);
        fields.push_back(field ? InformationField{field->Nombre, field->Tipo, value.text}
                               : InformationField{{}, value.type, value.text});
    }
    return fields;
}

QString informationText(const std::string& layerName, const std::vector<InformationField>& fields)
{
    QString text = QStringLiteral("Layer: ") + QString::fromStdString(layerName) + kParagraph;
    for (const InformationField& field : fields) {
        text += QString::fromStdString(field.name) + QStringLiteral(": ") + withoutBlanks(field.text) + kParagraph;
    }
    return text;
}

} // namespace orbelan
