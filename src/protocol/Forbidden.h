#pragma once

#include <QJsonObject>
#include <QString>

/// The answer "forbidden" to what an operator did: a right that has been taken away while the page
/// still offered its control.
namespace Forbidden
{

/// Whether the operator hears of a refusal of that command from here: not of what the console reads
/// by itself, and not where the command's own handler has a dialog for it.
bool isTold(const QString& protocol, const QString& command);

/// Opens the frame's dialog if the reply is such an answer to what the operator caused. To be
/// called by the handler of the reply.
void tell(const QJsonObject& reply);

/// Whether the reply is such an answer.
bool isAnswer(const QJsonObject& reply);

} // namespace Forbidden
