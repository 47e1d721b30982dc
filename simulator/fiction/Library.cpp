#include "simulator/fiction/Library.h"

#include <array>

namespace simulator
{

namespace
{

struct NamedPlaylist {
    int id;
    const char* title;
    int parent;
    int group;
};

constexpr std::array<NamedPlaylist, 15> namedPlaylists{{
    {1, "Радио", 0, 1},
    {2, "Плейлист", 0, 2},
    {3, "Реклама", 0, 3},
    {4, "Служебные сообщения", 0, 4},
    {5, "Записи с микрофона", 0, 5},
    {6, "Тревожные оповещения", 0, 6},
    {7, "Гонг", 0, 7},
    {21, "Интернет-радио", 1, 1},
    {22, "Утренняя музыка", 2, 2},
    {23, "Вечерняя музыка", 2, 2},
    {24, "Спокойный джаз", 23, 2},
    {25, "Акции недели", 3, 3},
    {26, "Объявления для сотрудников", 4, 4},
    {27, "Эвакуация", 6, 6},
    {28, "Сигналы", 7, 7},
}};

struct NamedTrack {
    int id;
    const char* title;
    int playlist;
    int duration; ///< seconds, -1 for a live stream
};

constexpr std::array<NamedTrack, 22> namedTracks{{
    {101, "Радио «Северный ветер»", 21, -1},
    {102, "Радио «Городская волна»", 21, -1},
    {111, "Рассвет над рекой", 22, 214},
    {112, "Первый трамвай", 22, 187},
    {113, "Кофе на террасе", 22, 243},
    {114, "Светлый понедельник", 22, 198},
    {121, "Огни набережной", 23, 265},
    {122, "Тихий двор", 23, 231},
    {123, "Последний автобус", 23, 278},
    {131, "Прогулка вполголоса", 24, 312},
    {132, "Синий саксофон", 24, 346},
    {141, "Скидки в кафетерии", 25, 28},
    {142, "Неделя здоровья", 25, 35},
    {151, "Обеденный перерыв", 26, 12},
    {152, "Окончание рабочего дня", 26, 15},
    {153, "Проверка системы оповещения", 26, 18},
    {161, "Пожарная тревога", 27, 42},
    {162, "Эвакуация: спокойно пройдите к выходам", 27, 38},
    {163, "Отбой тревоги", 27, 17},
    {171, "Гонг одиночный", 7, 3},
    {172, "Гонг тройной", 7, 6},
    {173, "Звонок на урок", 28, 8},
}};

} // namespace

void addLibrary(Installation& installation)
{
    for (const NamedPlaylist& named : namedPlaylists) {
        int position = 0;
        for (const Playlist& sibling : installation.playlists) {
            position += sibling.parent == named.parent ? 1 : 0;
        }
        installation.playlists.append(
            {named.id, QString::fromUtf8(named.title), named.parent, position, named.group, 50});
    }
    for (const NamedTrack& named : namedTracks) {
        const int position = installation.tracksOf(named.playlist).size();
        installation.tracks.append(
            {named.id, named.playlist, QString::fromUtf8(named.title), position, named.duration});
    }
}

} // namespace simulator
