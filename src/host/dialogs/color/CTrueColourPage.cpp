#include "host/dialogs/color/CTrueColourPage.h"

#include "host/dialogs/color/CColourPlane.h"

#include <QColor>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
struct FieldRow
{
    const char* label;
    const char* suffix;
    int maximum;
    int column; ///< of the two
};

// In the order of CTrueColourPage::Field.
const FieldRow kFields[] = {
    {QT_TRANSLATE_NOOP("CTrueColourPage", "&Red:"), "", 255, 0},
    {QT_TRANSLATE_NOOP("CTrueColourPage", "&Green:"), "", 255, 0},
    {QT_TRANSLATE_NOOP("CTrueColourPage", "B&lue:"), "", 255, 0},
    {QT_TRANSLATE_NOOP("CTrueColourPage", "&Hue:"), "\u00b0", 359, 1},
    {QT_TRANSLATE_NOOP("CTrueColourPage", "&Saturation:"), " %", 100, 1},
    {QT_TRANSLATE_NOOP("CTrueColourPage", "Lightn&ess:"), " %", 100, 1},
};

constexpr int kRowsPerColumn = 3;

int toPercent(qreal share)
{
    return qRound(share * 100);
}

void showQuietly(QSpinBox& field, int value)
{
    const QSignalBlocker quiet(field);
    field.setValue(value);
}
} // namespace

CTrueColourPage::CTrueColourPage(QWidget* parent)
    : QWidget(parent)
    , m_plane(new CColourPlane(this))
    , m_hex(new QLineEdit(this))
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_plane);
    auto* grid = new QGridLayout;
    column->addLayout(grid);
    column->addStretch();
    addFields(*grid);
    connect(m_plane, &CColourPlane::moved, this, &CTrueColourPage::planeMoved);
    connect(m_hex, &QLineEdit::textEdited, this, &CTrueColourPage::hexEdited);
}

void CTrueColourPage::addFields(QGridLayout& grid)
{
    for (int i = 0; i < FieldCount; ++i) {
        const FieldRow& row = kFields[i];
        auto* box = new QSpinBox(this);
        box->setRange(0, row.maximum);
        box->setSuffix(QString::fromUtf8(row.suffix));
        box->setWrapping(i == Hue);
        m_fields[i] = box;
        auto* label = new QLabel(tr(row.label), this);
        label->setBuddy(box);
        box->setAccessibleName(tr(row.label).remove(QLatin1Char('&')).chopped(1));
        grid.addWidget(label, i % kRowsPerColumn, row.column * 3);
        grid.addWidget(box, i % kRowsPerColumn, row.column * 3 + 1);
        connect(box, &QSpinBox::valueChanged, this, [this, i] { edited(static_cast<Field>(i)); });
    }
    grid.setColumnMinimumWidth(2, fontMetrics().averageCharWidth() * 4);
    auto* label = new QLabel(tr("He&xadecimal:"), this);
    label->setBuddy(m_hex);
    m_hex->setAccessibleName(tr("Hexadecimal"));
    m_hex->setMaximumWidth(fontMetrics().averageCharWidth() * 14);
    m_hex->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("#?[0-9A-Fa-f]{0,6}")), m_hex));
    grid.addWidget(label, kRowsPerColumn, 0);
    grid.addWidget(m_hex, kRowsPerColumn, 1, 1, 2);
    grid.setColumnStretch(5, 1);
}

void CTrueColourPage::planeMoved()
{
    // Both first: the plane follows the fields.
    const int hue = qRound(m_plane->hue() * 360);
    const int lightness = toPercent(m_plane->lightness());
    m_fields[Hue]->setValue(hue);
    m_fields[Lightness]->setValue(lightness);
}

void CTrueColourPage::setColour(const QColor& colour)
{
    show(colour, true, true);
}

void CTrueColourPage::show(const QColor& colour, bool withHueFields, bool withHex)
{
    showQuietly(*m_fields[Red], colour.red());
    showQuietly(*m_fields[Green], colour.green());
    showQuietly(*m_fields[Blue], colour.blue());
    if (withHueFields) {
        // A grey has no hue; the field keeps the one it had.
        if (colour.hslHue() >= 0)
            showQuietly(*m_fields[Hue], colour.hslHue());
        showQuietly(*m_fields[Saturation], toPercent(colour.hslSaturationF()));
        showQuietly(*m_fields[Lightness], toPercent(colour.lightnessF()));
    }
    m_plane->setColour(m_fields[Hue]->value() / 360.0, m_fields[Saturation]->value() / 100.0,
                       m_fields[Lightness]->value() / 100.0);
    if (withHex)
        m_hex->setText(colour.name());
}

void CTrueColourPage::edited(Field id)
{
    QColor colour;
    if (id <= Blue)
        colour.setRgb(m_fields[Red]->value(), m_fields[Green]->value(), m_fields[Blue]->value());
    else
        colour.setHslF(static_cast<float>(m_fields[Hue]->value()) / 360.0f,
                       static_cast<float>(m_fields[Saturation]->value()) / 100.0f,
                       static_cast<float>(m_fields[Lightness]->value()) / 100.0f);
    colour = colour.toRgb();
    show(colour, id <= Blue, true);
    emit picked(colour);
}

void CTrueColourPage::hexEdited(const QString& text)
{
    const QString digits = text.startsWith(QLatin1Char('#')) ? text.mid(1) : text;
    if (digits.size() != 6)
        return;
    const QColor colour = QColor::fromRgb(digits.toUInt(nullptr, 16) | 0xFF000000u);
    show(colour, true, false);
    emit picked(colour);
}
