#pragma once

#include <QToolButton>

/// Shows examples of filters in a leaf that drops down from it, and does nothing else.
class CFilterExamplesBtn : public QToolButton
{
    Q_OBJECT
public:
    explicit CFilterExamplesBtn(QWidget* parent);
};
