#include "simulator/fiction/InstallationBuilder.h"

#include "simulator/fiction/Fleet.h"
#include "simulator/fiction/Library.h"
#include "simulator/fiction/People.h"
#include "simulator/state/Transport.h"

namespace simulator
{

namespace
{

Task playTask(int id, const QString& title, int playlist, int track, const QString& frequency,
              const QString& startTime)
{
    Task task;
    task.id = id;
    task.title = title;
    task.target = playlist;
    task.track = track;
    task.frequency = frequency;
    task.startDate = QDate::currentDate().addDays(-7).toString("yyyy-MM-dd");
    task.startTime = startTime;
    return task;
}

/// A stop time is an event of its own, which copies the play event and points at it.
Task stopTaskOf(const Task& play, int id, const QString& time)
{
    Task stop = play;
    stop.id = id;
    stop.title = play.title + "_stop";
    stop.play = false;
    stop.target = play.id;
    stop.startTime = time;
    return stop;
}

void addTasks(Installation& installation)
{
    Task morning = playTask(1, "Утренняя музыка", 22, 111, "weekly", "05:30");
    morning.days = "monday,tuesday,wednesday,thursday,friday";
    morning.targets.zones = {3, 4};
    Task lunch = playTask(2, "Обеденный перерыв", 26, 151, "daily", "09:00");
    lunch.targets.zones = {3, 4, 5};
    Task check = playTask(3, "Проверка оповещения", 26, 153, "monthly", "07:00");
    check.enabled = false;
    Task evening = playTask(4, "Вечерний джаз", 24, 131, "weekly", "15:00");
    evening.days = "friday";
    evening.targets.units = {4, 8, 15};
    evening.repetition.repeats = 1;
    // Who has just started the server sees a task start in the second minute, and stop.
    const QDateTime soon = QDateTime::currentDateTimeUtc().addSecs(119);
    Task tour = playTask(6, "Музыка перед экскурсией", 23, 121, "daily", soon.toString("HH:mm"));
    tour.targets.zones = {4};
    const QString end = soon.addSecs(120).toString("HH:mm");
    installation.tasks = {morning, stopTaskOf(morning, 5, "07:00"), lunch, check, evening,
                          tour,    stopTaskOf(tour, 7, end)};
}

void addPresets(Installation& installation)
{
    Preset evacuation;
    evacuation.id = 1;
    evacuation.title = "Эвакуация";
    evacuation.playlist = 27;
    evacuation.track = 161;
    evacuation.targets.zones = {6};
    evacuation.repetition.repeats = 9;
    Preset lobby;
    lobby.id = 2;
    lobby.title = "Музыка в холле";
    lobby.playlist = 22;
    lobby.position = 1;
    lobby.targets.zones = {3};
    lobby.repetition.atEnd = "pause";
    Preset closing;
    closing.id = 3;
    closing.title = "Окончание рабочего дня";
    closing.playlist = 26;
    closing.track = 152;
    closing.position = 2;
    closing.targets.units = {1, 2, 5, 6, 10};
    closing.repetition.target = "track";
    closing.repetition.repeats = 1;
    installation.presets = {evacuation, lobby, closing};
}

/// What runs when the server starts: the radio in the technical rooms, music at the reception.
void addPlaybacks(Installation& installation)
{
    const QString schedule = "the schedule";
    StartOrder radio;
    radio.playlist = 21;
    radio.units = {21, 23};
    radio.by = schedule;
    startPlayback(installation, radio);
    StartOrder music;
    music.playlist = 22;
    music.track = 112;
    music.units = {2, 8};
    music.repetition.repeats = 99;
    music.by = schedule;
    const StartResult started = startPlayback(installation, music);
    if (Playback* playback = installation.playback(started.playback)) {
        playback->task = 1;
    }
}

ServerSettings makeServer()
{
    ServerSettings server;
    server.version = "4.7.2.15";
    server.interfaces = {{"10.20.0.2", "eth0"}, {"192.168.7.1", "eth1"}};
    server.networkInterface = "10.20.0.2";
    server.multicastIp = "224.0.224.1";
    server.commandPort = 11990;
    server.timezone = 3;
    return server;
}

} // namespace

Installation buildInstallation(int deviceCount, quint32 seed)
{
    Installation installation;
    addFleet(installation, deviceCount, seed);
    addLibrary(installation);
    addTasks(installation);
    addPresets(installation);
    addPlaybacks(installation);
    addPeople(installation);
    installation.firmware = {{"unit-3.4.2.eff", "3.4.2.118"}, {"unit-2.8.1.bin", "2.8.1.40"}};
    installation.server = makeServer();
    return installation;
}

} // namespace simulator
