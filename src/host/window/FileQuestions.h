#pragma once

#include "host/application/HostFrontEnd.h"

class QWidget;

/// What the window asks about files that others use, or that a lost session left behind.
namespace file_questions {

HostFrontEnd::LockAnswer aboutLock(QWidget* parent, const QString& path, const QString& holder);
HostFrontEnd::ChangeAnswer aboutChange(QWidget* parent, const HostDocument& document);
bool reload(QWidget* parent, const HostDocument& document);
HostFrontEnd::RecoveryAnswer aboutRecovery(QWidget* parent, const QString& drawing,
                                           const QDateTime& written);

} // namespace file_questions
