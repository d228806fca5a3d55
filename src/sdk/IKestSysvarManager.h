#pragma once

#include "database/values/OdDbObjectId.h"

#include <QString>

/// System variables by name, without regard to case. Each call answers kest::kNormal, or
/// kest::kError when the name is unknown, the type differs, the value is out of range or no drawing
/// is open.
class IKestSysvarManager
{
public:
    virtual ~IKestSysvarManager() = default;

    virtual int getInt(const QString& name, int& value) const = 0;
    virtual int setInt(const QString& name, int value) = 0;
    virtual int getReal(const QString& name, double& value) const = 0;
    virtual int setReal(const QString& name, double value) = 0;
    virtual int getString(const QString& name, QString& value) const = 0;
    virtual int setString(const QString& name, const QString& value) = 0;
    /// Variables that name a record of the current drawing, such as CLAYER.
    virtual int getId(const QString& name, OdDbObjectId& value) const = 0;
    virtual int setId(const QString& name, OdDbObjectId value) = 0;
};

/// The host's system-variable manager, or null while there is no host.
IKestSysvarManager* getSysvarManagerInterface();
