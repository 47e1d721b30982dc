#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One input as the system names it, and the sound system that it comes from.
struct SoundInput {
    QString name;
    QString realm;
};

/// The names of those that an operator can speak into, each once, in their order: where a sound
/// server runs its inputs alone, as it has the cards, and the monitors of outputs only where there
/// is nothing else.
QStringList microphonesAmong(QVector<SoundInput> inputs);
