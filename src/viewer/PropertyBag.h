#pragma once

#include <QString>
#include <QVariant>

namespace orbelan {

// Where a host keeps the persisted properties of a control between runs.
// Reading a key the bag does not hold gives the read default; writing a value
// equal to the write default stores nothing for that key, so the read default
// applies again next time.
class PropertyBag {
public:
    virtual ~PropertyBag();

    virtual QVariant ReadProperty(const QString& key, const QVariant& readDefault) const = 0;
    virtual void WriteProperty(const QString& key, const QVariant& value, const QVariant& writeDefault) = 0;
};

} // namespace orbelan
