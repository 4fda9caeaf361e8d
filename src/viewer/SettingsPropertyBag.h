#pragma once

#include "viewer/PropertyBag.h"

#include <QSettings>

namespace orbelan {

// A property bag kept in a QSettings store under one group, for host
// applications that persist a control in their own settings.
class SettingsPropertyBag : public PropertyBag {
public:
    // The bag uses the given settings (which must outlive it) under group.
    SettingsPropertyBag(QSettings& settings, QString group);

    QVariant ReadProperty(const QString& key, const QVariant& readDefault) const override;
    void WriteProperty(const QString& key, const QVariant& value, const QVariant& writeDefault) override;

private:
    QString path(const QString& key) const;

    QSettings& settings_;
    QString group_;
};

} // namespace orbelan
