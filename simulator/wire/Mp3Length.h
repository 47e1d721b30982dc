#pragma once

#include <QByteArray>

namespace simulator
{

/// How long an MP3 file plays, counted frame by frame while the file arrives; it keeps no more of
/// it than a frame's head. What is no frame is passed over.
class Mp3Length
{
public:
    void feed(const QByteArray& bytes);
    /// Whole seconds, rounded; 0 while there was no frame.
    int seconds() const { return qRound(playing); }

private:
    /// What one frame or tag takes; 1 where neither begins.
    qint64 pass(const uchar* head);

    QByteArray rest;  ///< seen but not passed
    qint64 ahead = 0; ///< bytes of the frame or tag under way that are still to come
    double playing = 0;
};

} // namespace simulator
