#include "viewer/Guarded.h"

#include "viewer/Viewer.h"

#include <QtGlobal>

namespace orbelan {

void reportStopped(Viewer& viewer, const char* entry, const char* reason) noexcept
{
    try {
        const QString message = QString::fromUtf8(entry) + QStringLiteral(": ") + QString::fromUtf8(reason);
        qWarning("Viewer: %s", qUtf8Printable(message));
        emit viewer.errorOccurred(message);
    } catch (...) {
        // Not even the report could be made (no memory left): the control goes on regardless.
    }
}

} // namespace orbelan
