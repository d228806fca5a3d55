#pragma once

#include <QWidget>

class CColourPlane;
class QGridLayout;
class QLineEdit;
class QSpinBox;

/// A plane of hues, and fields for a colour in red, green and blue, in hue, saturation and
/// lightness, and as hexadecimal number. Each follows the others.
class CTrueColourPage : public QWidget
{
    Q_OBJECT
public:
    /// Ids of the fields, in the order of the page.
    enum Field { Red, Green, Blue, Hue, Saturation, Lightness, FieldCount };

    explicit CTrueColourPage(QWidget* parent);

    /// Shows the colour without telling about it.
    void setColour(const QColor& colour);
    QSpinBox* field(Field id) const { return m_fields[id]; }
    QLineEdit* hexEdit() const { return m_hex; }
    CColourPlane* plane() const { return m_plane; }

signals:
    void picked(const QColor& colour);

private:
    void addFields(QGridLayout& grid);
    void planeMoved();
    void edited(Field id);
    void hexEdited(const QString& text);
    void show(const QColor& colour, bool withHueFields, bool withHex);

    CColourPlane* m_plane;
    QSpinBox* m_fields[FieldCount] = {};
    QLineEdit* m_hex;
};
