#include "simulator/commands/Definitions.h"

namespace simulator
{

QString lackOf(const Installation& installation, const Role& role, const Definitions& of,
               int playlist, const Targets& targets)
{
    const char* const missing = Access(installation, role).lacks(playlist, targets);
    return missing ? QStringLiteral("forbidden%1In%2").arg(missing, of.kind) : QString();
}

QString administratorsLack(const Installation& installation, const Definitions& of, int playlist,
                           const Targets& targets)
{
    QString word;
    for (const Role& role : installation.roles) {
        if (word.isEmpty() && role.*of.right == Level::Administration) {
            word = lackOf(installation, role, of, playlist, targets);
        }
    }
    return word;
}

void grant(Installation& installation, const Definitions& of, int id)
{
    for (Role& role : installation.roles) {
        if (role.*of.right == Level::Administration) {
            (role.*of.ids).append(id);
        }
    }
}

void withdraw(Installation& installation, const Definitions& of, int id)
{
    for (Role& role : installation.roles) {
        (role.*of.ids).removeAll(id);
    }
}

} // namespace simulator
