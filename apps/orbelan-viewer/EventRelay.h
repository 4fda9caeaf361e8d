#pragma once

#include <QByteArray>
#include <QMetaMethod>
#include <QObject>
#include <QVariantList>

#include <functional>
#include <vector>

namespace orbelan {

// Hears every signal a class declares (its own, not those it inherits) and
// hands each emission on as a name and a list of values, so a host can report
// events it was never told about one by one. Pointer arguments such as an
// in/out flag are passed as the value they point to.
class EventRelay : public QObject {
public:
    using Sink = std::function<void(const QByteArray& name, const QVariantList& arguments)>;

    // Relays the signals that source's class declares, except those named in excluded.
    EventRelay(QObject& source, Sink sink, const QList<QByteArray>& excluded = {});

    int qt_metacall(QMetaObject::Call call, int id, void** arguments) override;

private:
    void relay(const QMetaMethod& signal, void** arguments) const;

    Sink sink_;
    std::vector<QMetaMethod> signals_;
};

} // namespace orbelan
