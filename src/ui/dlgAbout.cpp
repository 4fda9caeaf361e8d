#include "ui/dlgAbout.h"

#include "version/OrbelanVersion.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <QVBoxLayout>

namespace orbelan {

namespace {

QLabel* namedLabel(const QString& name, const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

QString versionText(int major, int minor, int revision)
{
    const QStringList parts{QString::number(major), QString::number(minor), QString::number(revision)};
    return QStringLiteral("Version ") + parts.join(QLatin1Char('.'));
}

} // namespace

dlgAbout::dlgAbout(QWidget* parent)
    : dlgAbout(version::kMajor, version::kMinor, version::kRevision, parent)
{
}

dlgAbout::dlgAbout(int major, int minor, int revision, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("dlgAbout"));
    setWindowTitle(QStringLiteral("About Orbelan Viewer"));

    auto* cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &dlgAbout::confirm);

    buildLayout(namedLabel(QStringLiteral("lblTitle"), QStringLiteral("Orbelan Viewer"), this),
                namedLabel(QStringLiteral("lblVersion"), versionText(major, minor, revision), this),
                namedLabel(QStringLiteral("lblDescription"), QString(), this),
                namedLabel(QStringLiteral("lblDisclaimer"), QString(), this), cmdOK);
}

void dlgAbout::buildLayout(QLabel* lblTitle, QLabel* lblVersion, QLabel* lblDescription, QLabel* lblDisclaimer,
                           QPushButton* cmdOK)
{
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch();
    buttonRow->addWidget(cmdOK);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblTitle);
    layout->addWidget(lblVersion);
    layout->addWidget(lblDescription);
    layout->addWidget(lblDisclaimer);
    layout->addLayout(buttonRow);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void dlgAbout::confirm()
{
    cancelled_ = false;
    accept();
}

} // namespace orbelan
