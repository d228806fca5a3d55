#pragma once

#include "database/filters/OdLyLayerFilter.h"
#include "database/values/GroupList.h"

#include <QString>

class OdDbDatabase;

/// How drawings keep layer filters: which dictionaries, keys and groups.
namespace FilterRecords {

/// Group codes of a filter record.
enum Group {
    kClass = 1,
    kVersion = 90,
    kCurrent = 290,
    kName = 300,
    kExpression = 301,
    kMember = 330
};

inline const QString kDictionary = QStringLiteral("ACLYDICTIONARY");
inline const QString kLegacyDictionary = QStringLiteral("ACAD_LAYERFILTERS");
inline const QString kAll = QStringLiteral("All");
inline const QString kAllUsed = QStringLiteral("All used layers");
inline const QString kUnreconciled = QStringLiteral("UnReconciled New Layers");
inline constexpr const char* kGroupClass = "AcLyLayerGroup";
inline constexpr const char* kExpressionClass = "AcLyLayerFilter";

/// The filter that a record of the current form tells; null for a class that is not known.
OdLyLayerFilterPtr read(const OdDbDatabase& database, OdDbObjectId record);
/// The record's groups with the filter's name, expression and members in them; other groups stay.
GroupList written(const OdLyLayerFilter& filter, const GroupList& before);
bool isMarkedCurrent(const GroupList& groups);
GroupList markedCurrent(const GroupList& groups, bool current);

/// A filter of the form that programs wrote before there was a tree: an expression of the
/// criteria. Null for a record of another shape.
OdLyLayerFilterPtr readLegacy(const OdDbDatabase& database, OdDbObjectId record);

/// The dictionary of filters below an owner (the layer table, a filter's record), or a null id.
OdDbObjectId dictionaryOf(const OdDbDatabase& database, OdDbObjectId owner, const QString& key);

/// The key of a filter by its number ("*A1").
QString keyOf(quint32 number);
/// The number in a key; 0 for a key of another form.
quint32 numberOf(const QString& key);

/// Which filter is current by the extended data of the top dictionary: "<All", "<AllUsed" ...;
/// empty where there is none.
QString currentMark(const GroupList& xData);
GroupList withCurrentMark(const GroupList& xData, const QString& mark);

} // namespace FilterRecords
