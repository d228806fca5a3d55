#include "host/sysvars/HostSysvarManager.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/documents/HostDocManager.h"
#include "host/sysvars/SysvarTable.h"
#include "host/sysvars/UserSettings.h"
#include "host/text/HostText.h"
#include "sdk/KestStatus.h"

#include <QLocale>

#include <cmath>
#include <optional>

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

// What the variable takes: "CLAYER takes text".
QString taken(const SysvarDefinition& variable)
{
    const QString name = QLatin1String(variable.name);
    switch (variable.type) {
    case SysvarType::Integer:
        return HostText::tr("%1 takes an integer from %2 to %3")
            .arg(name)
            .arg(static_cast<int>(variable.minimum))
            .arg(static_cast<int>(variable.maximum));
    case SysvarType::Real:
        return HostText::tr("%1 takes a number above %2, up to %3")
            .arg(name)
            .arg(variable.minimum)
            .arg(variable.maximum);
    case SysvarType::Text:
        return HostText::tr("%1 takes text").arg(name);
    case SysvarType::Point:
        break;
    }
    return HostText::tr("%1 takes a point").arg(name);
}

void checkRange(const SysvarDefinition& variable, const SysvarValue& value)
{
    const int* integer = std::get_if<int>(&value);
    const double* real = std::get_if<double>(&value);
    if ((!integer && !real) || variable.isInRange(integer ? *integer : *real))
        return;
    throw OdError(
        OdResult::OutOfRange,
        HostText::tr("%1; %2 is out of range.")
            .arg(taken(variable), integer ? QString::number(*integer) : QString::number(*real)));
}

// As the user reads and types them: with as many digits as it takes to read the same number back.
QString shortestText(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

std::optional<double> realOf(const QString& text)
{
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<SysvarPoint> pointOf(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    const auto x = realOf(parts.value(0));
    const auto y = realOf(parts.value(1));
    const auto z = parts.size() == 3 ? realOf(parts[2]) : std::optional(0.0);
    if (!x || !y || !z || parts.size() > 3)
        return std::nullopt;
    return SysvarPoint{*x, *y, *z};
}

// A typed text as a value of the variable's type; nothing when it is none.
std::optional<SysvarValue> valueOf(const SysvarDefinition& variable, const QString& text)
{
    bool isNumber = false;
    switch (variable.type) {
    case SysvarType::Integer:
        if (const int number = text.trimmed().toInt(&isNumber); isNumber)
            return number;
        return std::nullopt;
    case SysvarType::Real:
        return realOf(text);
    case SysvarType::Point:
        return pointOf(text);
    case SysvarType::Text:
        break;
    }
    return text;
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
    return {m_documents.curDocument(), &m_commands, m_frontEnd};
}

int HostSysvarManager::userValue(const SysvarDefinition& variable) const
{
    const auto known = m_userValues.constFind(&variable);
    if (known != m_userValues.constEnd())
        return *known;
    const int fallback = static_cast<int>(variable.fallback);
    bool isNumber = false;
    int value = m_settings.value(settingsKey(variable), fallback).toInt(&isNumber);
    // A settings file edited by hand may hold anything.
    if (!isNumber || !variable.isInRange(value))
        value = fallback;
    m_userValues.insert(&variable, value);
    return value;
}

void HostSysvarManager::setUserValue(const SysvarDefinition& variable, int value)
{
    const bool isNew = value != userValue(variable);
    m_userValues.insert(&variable, value);
    m_settings.setValue(settingsKey(variable), value);
    if (isNew)
        emit userVariableChanged(QLatin1String(variable.name));
}

SysvarValue HostSysvarManager::value(const QString& name) const
{
    const SysvarDefinition& variable = require(name);
    return variable.get ? variable.get(context(), variable) : SysvarValue(userValue(variable));
}

void HostSysvarManager::setValue(const QString& name, const SysvarValue& value)
{
    const SysvarDefinition& variable = require(name);
    if (variable.isReadOnly()) {
        throw OdError(OdResult::NotApplicable,
                      HostText::tr("%1 cannot be set.").arg(QLatin1String(variable.name)));
    }
    if (static_cast<std::size_t>(variable.type) != value.index())
        throw OdError(OdResult::InvalidInput, taken(variable) + QLatin1Char('.'));
    checkRange(variable, value);
    if (variable.set)
        variable.set(context(), variable, value);
    else
        setUserValue(variable, std::get<int>(value));
}

void HostSysvarManager::setText(const QString& name, const QString& text)
{
    const SysvarDefinition& variable = require(name);
    const auto value = variable.isReadOnly() ? SysvarValue(text) : valueOf(variable, text);
    if (!value)
        throw OdError(OdResult::InvalidInput,
                      HostText::tr("%1; \"%2\" is none.").arg(taken(variable), text));
    setValue(name, *value);
}

QString HostSysvarManager::text(const QString& name) const
{
    const SysvarValue read = value(name);
    if (const int* integer = std::get_if<int>(&read))
        return QString::number(*integer);
    if (const double* real = std::get_if<double>(&read))
        return shortestText(*real);
    if (const SysvarPoint* point = std::get_if<SysvarPoint>(&read))
        return QStringList{shortestText(point->x), shortestText(point->y), shortestText(point->z)}
            .join(QLatin1Char(','));
    return std::get<QString>(read);
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

int HostSysvarManager::getReal(const QString& name, double& value) const
{
    return status([&] { return assign(this->value(name), value); });
}

int HostSysvarManager::setReal(const QString& name, double value)
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
