#pragma once

#include <QDBusConnection>
#include <optional>

namespace quillery {

/// The desktop's message bus; nothing where there is none. Never starts one.
std::optional<QDBusConnection> sessionBus();

} // namespace quillery
