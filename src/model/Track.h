#pragma once

/// One audio item of a playlist.
class Track
{
public:
    int getId() const { return id; }

    int id = 0;
    int parentId = 0; ///< the playlist that holds it
    int position = 0; ///< place within the playlist, as the server keeps it
};
