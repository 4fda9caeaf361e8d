#include "query/QueryWidgets.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace orbelan::querywidgets {

QComboBox* comboBox(const char* name, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

QLineEdit* lineEdit(const char* name, const QString& text, QWidget* parent)
{
    auto* box = new QLineEdit(text, parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

QLabel* label(const char* name, const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}

QPushButton* button(const char* name, const QString& caption, QWidget* parent)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

bool selectOrFirst(QComboBox& box, const QString& text)
{
    const int found = box.findText(text);
    box.setCurrentIndex(found >= 0 ? found : (box.count() > 0 ? 0 : -1));
    return found >= 0;
}

} // namespace orbelan::querywidgets
