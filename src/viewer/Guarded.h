#pragma once

#include <exception>
#include <utility>

namespace orbelan {

class Viewer;

// Tells that an entry into the control stopped on an error: one warning in
// the log, and the viewer's errorOccurred signal for its host.
void reportStopped(Viewer& viewer, const char* entry, const char* reason) noexcept;

// Runs an entry from Qt into the control (an event handler, slot, timer,
// invokable method or property setter) so that no exception reaches Qt's
// event loop: an error ends the entry, is reported, and the control goes on.
template <typename Entry>
void guarded(Viewer& viewer, const char* entry, Entry&& run) noexcept
{
    try {
        std::forward<Entry>(run)();
    } catch (const std::exception& error) {
        reportStopped(viewer, entry, error.what());
    } catch (...) {
        reportStopped(viewer, entry, "an error of unknown kind");
    }
}

} // namespace orbelan
