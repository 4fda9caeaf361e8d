#include "orbelan-viewer/EventRelay.h"

namespace orbelan {

EventRelay::EventRelay(QObject& source, Sink sink, const QList<QByteArray>& excluded)
    : QObject(&source),
      sink_(std::move(sink))
{
    const QMetaObject* type = source.metaObject();
    // Each relayed signal is connected to its own slot number past the slots
    // QObject has, which qt_metacall below turns back into the signal.
    const int firstSlot = QObject::staticMetaObject.methodCount();
    for (int index = type->methodOffset(); index < type->methodCount(); ++index) {
        const QMetaMethod method = type->method(index);
        if (method.methodType() != QMetaMethod::Signal || excluded.contains(method.name())) {
            continue;
        }
        const int slot = firstSlot + static_cast<int>(signals_.size());
        signals_.push_back(method);
        QMetaObject::connect(&source, index, this, slot, Qt::DirectConnection);
    }
}

int EventRelay::qt_metacall(QMetaObject::Call call, int id, void** arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod) {
        return id;
    }
    if (static_cast<std::size_t>(id) < signals_.size()) {
        relay(signals_[static_cast<std::size_t>(id)], arguments);
    }
    return id - static_cast<int>(signals_.size());
}

void EventRelay::relay(const QMetaMethod& signal, void** arguments) const
{
    QVariantList values;
    for (int i = 0; i < signal.parameterCount(); ++i) {
        void* argument = arguments[i + 1];
        if (signal.parameterTypeName(i) == "bool*") {
            values << **static_cast<bool**>(argument);
        } else {
            values << QVariant(signal.parameterMetaType(i), argument);
        }
    }
    sink_(signal.name(), values);
}

} // namespace orbelan
