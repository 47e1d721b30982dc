#pragma once

#include <QByteArray>
#include <QString>

#include <map>

/// A file that goes with a request: the field's name, and its content as base64, which needs no
/// escaping. It is written behind the other fields in pieces, and never copied.
struct Attachment {
    QString name;
    QByteArray base64;
};

/// Fields of a received object whose texts are too long to be values of it: as values they would
/// take twice their bytes, and the main thread's time to be read. In UTF-8, unescaped, by name;
/// what a file of the server held may be no UTF-8 at all.
using LongTexts = std::map<QString, QByteArray>;

/// A text of more bytes than this is a long one.
constexpr int longTextSize = 256 * 1024;

/// Takes the long texts out of an object's text, and leaves empty ones there. What is no sound text
/// stays for the reader to refuse. Takes about as long as copying; may be called in any thread.
LongTexts takeLongTexts(QByteArray& json);
