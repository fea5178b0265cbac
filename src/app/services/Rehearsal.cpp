#include "app/services/Rehearsal.h"

#include <QRandomGenerator>

int Rehearsal::dice() const
{
    return QRandomGenerator::global()->bounded(-spread, spread + 1);
}
