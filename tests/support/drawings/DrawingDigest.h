#pragma once

#include <QStringList>

#include <string>

class OdDbDatabase;

/// What a drawing says about layers, in lines that do not depend on where it stands in the file:
/// layers with every property and override, frozen lists, filters, variables, uses. Two drawings
/// with equal digests hold the same.
QStringList drawingDigest(const OdDbDatabase& database);

/// The first line in which two digests differ, of both; empty where they are equal.
std::string digestDifference(const QStringList& a, const QStringList& b);
