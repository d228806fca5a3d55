#pragma once

#include "database/drawing/OdDbDatabase.h"
#include "sdk/KestHost.h"
#include "sdk/KsApDocManager.h"

#include <memory>
#include <utility>

/// As much of a host as the palette's views need to know the current drawing.
class BenchDocuments : public KsApDocManager, public KsApDocument
{
public:
    explicit BenchDocuments(std::unique_ptr<OdDbDatabase> drawing)
        : m_drawing(std::move(drawing))
    {
        KestHost host;
        host.documents = this;
        ksSetHost(host);
    }
    ~BenchDocuments() override { ksSetHost({}); }

    OdDbDatabase* database() const override { return m_drawing.get(); }
    QString fileName() const override { return {}; }
    bool hasMark(const QString&) const override { return false; }
    void setMark(const QString&) override { }
    KsApDocument* curDocument() const override { return const_cast<BenchDocuments*>(this); }
    int documentCount() const override { return 1; }
    bool isBusy() const override { return false; }
    void executeInApplicationContext(const std::function<void()>& callback) override { callback(); }
    void sendStringToExecute(const QString&) override { }
    void addReactor(KsApDocManagerReactor*) override { }
    void removeReactor(KsApDocManagerReactor*) override { }

private:
    std::unique_ptr<OdDbDatabase> m_drawing;
};
