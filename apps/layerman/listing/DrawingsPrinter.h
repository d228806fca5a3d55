#pragma once

#include <QString>

class Output;

/// Prints one list for each drawing: as JSON an array of one object for each, {"file", what is
/// listed: [...]} or {"file", "error"}; as tables each under its drawing's name where there are
/// several. The JSON is valid once it is finished, whatever failed.
class DrawingsPrinter
{
public:
    /// `listed` is the key of the lists.
    DrawingsPrinter(bool isJson, bool several, const QString& listed, Output& output);

    bool isJson() const { return m_isJson; }
    /// A drawing: its table, or the array's elements.
    void drawing(const QString& file, const QString& list);
    /// A drawing that failed; complaints are told elsewhere.
    void failed(const QString& file, const QString& sentence);
    void finish();

private:
    /// What stands before the second member of an object.
    QString head(const QString& file);

    bool m_isJson;
    bool m_isSeveral;
    bool m_isFirst = true;
    QString m_listed;
    Output& m_output;
};
