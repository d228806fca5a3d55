#pragma once

#include "host/sysvars/SysvarDefinition.h"
#include "sdk/IKestSysvarManager.h"

#include <QHash>
#include <QObject>

class HostDocManager;
class UserSettings;

/// System variables: the table, the current drawing and the user's settings.
class HostSysvarManager : public QObject, public IKestSysvarManager
{
    Q_OBJECT
public:
    HostSysvarManager(const HostDocManager& documents, const CommandState& commands,
                      UserSettings& settings);

    int getInt(const QString& name, int& value) const override;
    int setInt(const QString& name, int value) override;
    int getReal(const QString& name, double& value) const override;
    int setReal(const QString& name, double value) override;
    int getString(const QString& name, QString& value) const override;
    int setString(const QString& name, const QString& value) override;
    int getId(const QString& name, OdDbObjectId& value) const override;
    int setId(const QString& name, OdDbObjectId value) override;

    void setFrontEnd(HostFrontEnd& frontEnd) { m_frontEnd = &frontEnd; }

    // The same with reasons: these raise OdError with a sentence that says what is wrong.
    SysvarValue value(const QString& name) const;
    void setValue(const QString& name, const SysvarValue& value);
    /// Sets from text as the user types it; a point is "x,y" or "x,y,z".
    void setText(const QString& name, const QString& text);
    /// The value as text.
    QString text(const QString& name) const;

signals:
    /// A variable of the user's has another value. Those of the drawing are told by its database.
    void userVariableChanged(const QString& name);

private:
    SysvarContext context() const;
    void setUserValue(const SysvarDefinition& variable, int value);
    int userValue(const SysvarDefinition& variable) const;

    const HostDocManager& m_documents;
    const CommandState& m_commands;
    UserSettings& m_settings;
    HostFrontEnd* m_frontEnd = nullptr;
    mutable QHash<const SysvarDefinition*, int> m_userValues;
};
