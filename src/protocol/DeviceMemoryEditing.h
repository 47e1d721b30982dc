#pragma once

#include <QJsonObject>
#include <QString>

#include <functional>

/// What a memory image from a unit causes. Installed once at start; a hook that isn't set does
/// nothing.
struct MemoryImageHooks {
    /// The name that the operator has given it, and the image as base64.
    std::function<void(const QString& name, const QByteArray& base64)> arrived;
};

/// The installed hooks.
MemoryImageHooks& memoryImageHooks();

// Edits of a unit's memory; each success asks for what they have changed.
void protocolDeviceCommandAddMessage(const QJsonObject& reply);
void protocolDeviceCommandDeleteMessage(const QJsonObject& reply);
void protocolDeviceCommandAddScenario(const QJsonObject& reply);
void protocolDeviceCommandDeleteScenario(const QJsonObject& reply);
void protocolDeviceCommandRevertChanges(const QJsonObject& reply);
void protocolDeviceCommandUploadImage(const QJsonObject& reply);
void protocolDeviceCommandDownloadImage(const QJsonObject& reply);
/// A refusal ends the wait for the progress.
void protocolDeviceCommandApplyToDevice(const QJsonObject& reply);
void protocolDeviceCommandGetProgressOfApplying(const QJsonObject& reply);
