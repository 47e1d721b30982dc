#pragma once

#include <QString>

/// The names of the library's fixed roots, and what the pages call the rows of a folder.
namespace PlaylistWords
{

/// The kinds of rows of `wrapperInput_playback_addItem`.
inline constexpr int trackRow = 0;
inline constexpr int folderRow = 1;

/// A fixed root by its id, which is the category number of everything below it.
struct Category {
    int id;
    const char* title;
};

inline constexpr Category categories[] = {
    {1, "Радио"},
    {2, "Плейлист"},
    {3, "Реклама"},
    {4, "Служебные сообщения"},
    {5, "Записи с микрофона"},
    {6, "Тревожные оповещения"},
    {7, "Гонг"},
};

/// The name of a category; that of what the operator may not see for any other number.
inline QString categoryTitle(int category)
{
    for (const Category& row : categories) {
        if (row.id == category) {
            return QString::fromUtf8(row.title);
        }
    }
    return QStringLiteral("Нет доступа");
}

} // namespace PlaylistWords
