#pragma once

#include "../filters/tree/FilterTreeFixture.h"

/// The palette over a drawing that somebody else changes.
class SyncFixture : public FilterTreeFixture
{
    Q_OBJECT
protected:
    void prepare() override;
    void finish() override;

    /// A drawing of layer 0 and these, in the palette.
    void show(const QList<QByteArray>& layers);
    /// The drawing that the palette shows.
    OdDbDatabase& drawing() const;
    /// Adds a filter to it as another command would.
    FilterKey addProperty(const char* name, const char* expression);
    FilterKey addGroup(const char* name, std::initializer_list<const char*> layers,
                       const FilterKey& parent = all());
    OdDbLayerTableRecordPtr write(const char* layer) const;
    OdDbLayerTableRecordPtr read(const char* layer) const;
    OdDbObjectId id(const char* layer) const { return layer_drawing::id(drawing(), layer); }
    QTimer* timer(int id) const;
    /// Lets a timer of the grid run out now; false when it is not running.
    bool fire(int id);
    /// Whether doing that starts a running timer anew.
    bool restarts(int id, const std::function<void()>& action);
    /// Lets all timers run out until none is running any more.
    void quiesce();
    QString rows() const;
    QString chosen() const;
    void search(const char* text);
    /// Whether notices about the filter are wanted; as before the test at its end.
    void wantNotices(bool wanted);

private:
    FilterKey add(const OdLyLayerFilterPtr& filter, const FilterKey& parent);
    bool m_noticesBefore = true;
};
