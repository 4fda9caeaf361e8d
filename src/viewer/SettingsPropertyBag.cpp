#include "viewer/SettingsPropertyBag.h"

namespace orbelan {

SettingsPropertyBag::SettingsPropertyBag(QSettings& settings, QString group)
    : settings_(settings),
      group_(std::move(group))
{
}

QVariant SettingsPropertyBag::ReadProperty(const QString& key, const QVariant& readDefault) const
{
    return settings_.value(path(key), readDefault);
}

void SettingsPropertyBag::WriteProperty(const QString& key, const QVariant& value,
                                        const QVariant& writeDefault)
{
    if (value == writeDefault) {
        settings_.remove(path(key));
    } else {
        settings_.setValue(path(key), value);
    }
}

QString SettingsPropertyBag::path(const QString& key) const
{
    return group_.isEmpty() ? key : group_ + '/' + key;
}

} // namespace orbelan
