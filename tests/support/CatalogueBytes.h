#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// A text of a catalogue and what it is translated to.
struct CatalogueText
{
    QByteArray context;
    QByteArray source;
    QByteArray comment;
    QString translation;
};

/// The bytes of a compiled Qt Linguist catalogue (".qm") with these texts.
QByteArray catalogueBytes(const QList<CatalogueText>& texts);
