#include "host/sysvars/HostSysvarManager.h"

#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTableRecord.h"
#include "host/documents/HostDocManager.h"
#include "host/sysvars/SysvarTable.h"
#include "host/sysvars/UserSettings.h"
#include "host/text/HostText.h"
#include "sdk/KestStatus.h"

namespace {
const SysvarDefinition& require(const QString& name)
{
    const SysvarDefinition* variable = findSysvar(name);
    if (!variable) {
        throw OdError(OdResult::KeyNotFound,
                      HostText::tr("There is no system variable \"%1\".").arg(name));
    }
    return *variable;
}

QString settingsKey(const SysvarDefinition& variable)
{
    return QStringLiteral("Variables/") + QLatin1String(variable.name);
}

bool inRange(const SysvarDefinition& variable, int value)
{
    return value >= variable.minimum && value <= variable.maximum;
}

void checkRange(const SysvarDefinition& variable, int value)
{
    if (inRange(variable, value))
        return;
    throw OdError(OdResult::OutOfRange,
                  HostText::tr("%1 takes an integer from %2 to %3; %4 is out of range.")
                      .arg(QLatin1String(variable.name))
                      .arg(variable.minimum)
                      .arg(variable.maximum)
                      .arg(value));
}

// Runs a call of the interface: errors become a status.
template <class Call>
int status(Call call)
{
    try {
        return call() ? kest::kNormal : kest::kError;
    } catch (const OdError&) {
        return kest::kError;
    }
}

template <class Value>
bool assign(const SysvarValue& from, Value& to)
{
    const Value* value = std::get_if<Value>(&from);
    if (value)
        to = *value;
    return value != nullptr;
}

bool isLayerVariable(const QString& name)
{
    return name.compare(QStringLiteral("CLAYER"), Qt::CaseInsensitive) == 0;
}
} // namespace

HostSysvarManager::HostSysvarManager(const HostDocManager& documents, const CommandState& commands,
                                     UserSettings& settings)
    : m_documents(documents)
    , m_commands(commands)
    , m_settings(settings)
{ }

SysvarContext HostSysvarManager::context() const
{
    return {m_documents.curDocument(), &m_commands};
}

int HostSysvarManager::userValue(const SysvarDefinition& variable) const
{
    const auto known = m_userValues.constFind(&variable);
    if (known != m_userValues.constEnd())
        return *known;
    bool isNumber = false;
    int value = m_settings.value(settingsKey(variable), variable.fallback).toInt(&isNumber);
    // A settings file edited by hand may hold anything.
    if (!isNumber || !inRange(variable, value))
        value = variable.fallback;
    m_userValues.insert(&variable, value);
    return value;
}

SysvarValue HostSysvarManager::value(const QString& name) const
{
    const SysvarDefinition& variable = require(name);
    return variable.get ? variable.get(context()) : SysvarValue(userValue(variable));
}

void HostSysvarManager::setValue(const QString& name, const SysvarValue& value)
{
    const SysvarDefinition& variable = require(name);
    if (variable.isReadOnly()) {
        throw OdError(OdResult::NotApplicable,
                      HostText::tr("%1 cannot be set.").arg(QLatin1String(variable.name)));
    }
    if (variable.isText != std::holds_alternative<QString>(value)) {
        const QString sentence =
            variable.isText ? HostText::tr("%1 takes text.") : HostText::tr("%1 takes an integer.");
        throw OdError(OdResult::InvalidInput, sentence.arg(QLatin1String(variable.name)));
    }
    if (!variable.isText)
        checkRange(variable, std::get<int>(value));
    if (variable.set) {
        variable.set(context(), value);
        return;
    }
    m_userValues.insert(&variable, std::get<int>(value));
    m_settings.setValue(settingsKey(variable), std::get<int>(value));
}

void HostSysvarManager::setText(const QString& name, const QString& text)
{
    const SysvarDefinition& variable = require(name);
    if (variable.isText || variable.isReadOnly()) {
        setValue(name, text);
        return;
    }
    bool isNumber = false;
    const int number = text.trimmed().toInt(&isNumber);
    if (!isNumber) {
        throw OdError(OdResult::InvalidInput,
                      HostText::tr("%1 takes an integer from %2 to %3; \"%4\" is none.")
                          .arg(QLatin1String(variable.name))
                          .arg(variable.minimum)
                          .arg(variable.maximum)
                          .arg(text));
    }
    setValue(name, number);
}

QString HostSysvarManager::text(const QString& name) const
{
    const SysvarValue read = value(name);
    const int* number = std::get_if<int>(&read);
    return number ? QString::number(*number) : std::get<QString>(read);
}

int HostSysvarManager::getInt(const QString& name, int& value) const
{
    return status([&] { return assign(this->value(name), value); });
}

int HostSysvarManager::setInt(const QString& name, int value)
{
    return status([&] {
        setValue(name, value);
        return true;
    });
}

int HostSysvarManager::getString(const QString& name, QString& value) const
{
    return status([&] { return assign(this->value(name), value); });
}

int HostSysvarManager::setString(const QString& name, const QString& value)
{
    return status([&] {
        setValue(name, value);
        return true;
    });
}

int HostSysvarManager::getId(const QString& name, OdDbObjectId& value) const
{
    return status([&] {
        if (isLayerVariable(name))
            value = context().drawing().getCLAYER();
        return isLayerVariable(name);
    });
}

int HostSysvarManager::setId(const QString& name, OdDbObjectId value)
{
    return status([&] {
        const auto layer = value.openObject<OdDbLayerTableRecord>();
        if (!isLayerVariable(name) || !layer || value.database() != &context().drawing())
            return false;
        setValue(name, layer->getName());
        return true;
    });
}
