#pragma once

#include <QString>

/// One audio item of a playlist.
class Track
{
public:
    int getId() const { return id; }
    const QString& getTitle() const { return title; }
    void setTitle(const QString& newTitle) { title = newTitle; }

    int id = 0;
    int parentId = 0; ///< the playlist that holds it
    int position = 0; ///< place within the playlist, as the server keeps it

private:
    QString title;
};
