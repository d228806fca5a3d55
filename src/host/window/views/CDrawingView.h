#pragma once

#include <QWidget>

#include <memory>

class CCanvas;
class CLayoutTabs;
class DatabaseWatch;
class HostDocument;
class HostView;

/// One drawing on the screen: the canvas, its layouts' tabs below.
class CDrawingView : public QWidget
{
    Q_OBJECT
public:
    explicit CDrawingView(HostDocument& document, QWidget* parent = nullptr);
    ~CDrawingView() override;

    HostDocument& document() const { return m_document; }
    CCanvas& canvas() const { return *m_canvas; }
    CLayoutTabs& layoutTabs() const { return *m_layoutTabs; }
    /// The canvas as commands see it.
    HostView& hostView() const { return *m_hostView; }
    /// Lets go of the drawing, which is about to end.
    void release();

signals:
    /// The drawing changed since control was in the event loop last.
    void drawingChanged();
    void layoutWanted(const QString& name);
    /// What is selected changed, and the canvas shows it.
    void selectionShown();
    /// A key with a character was pressed over the drawing.
    void textTyped(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showSelection();

    HostDocument& m_document;
    CCanvas* m_canvas;
    CLayoutTabs* m_layoutTabs;
    DatabaseWatch* m_watch;
    std::unique_ptr<HostView> m_hostView;
};
