#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

/// What the benches share: timing, medians, and a report that doesn't mix with the program's log.
namespace Measure
{

/// How long `work` takes, in seconds.
inline double seconds(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// How long this process keeps the processors busy with `work`, in seconds, its threads included.
inline double processorSeconds(const std::function<void()>& work)
{
    const auto used = [] {
        timespec now{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
        return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
    };
    const double begin = used();
    work();
    return used() - begin;
}

/// The memory that this process holds.
inline double residentMegabytes()
{
    long pages = 0;
    if (std::FILE* const file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%*s %ld", &pages) != 1) {
            pages = 0;
        }
        std::fclose(file);
    }
    return static_cast<double>(pages) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

/// The middle value, the mean of the middle two of an even number; 0 of none.
inline double median(std::vector<double> values)
{
    if (values.empty()) {
        return 0;
    }
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

/// One way to do the work, and the seconds of each repetition.
struct Way {
    const char* name;
    std::function<double()> run;
    std::vector<double> times{};
};

/// Runs every way once unmeasured, then all of them in turn, `repetitions` times: what slows the
/// machine down for a while slows them all.
inline void interleave(std::vector<Way>& ways, int repetitions)
{
    for (Way& way : ways) {
        way.run();
    }
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        for (Way& way : ways) {
            way.times.push_back(way.run());
        }
    }
}

/// The median over the repetitions of `way` divided by `against` in the same repetition.
inline double ratio(const Way& way, const Way& against)
{
    std::vector<double> ratios;
    for (std::size_t index = 0; index < way.times.size(); ++index) {
        ratios.push_back(way.times[index] / against.times[index]);
    }
    return median(ratios);
}

/// The value of the option `name` ("--objects 1000"), or `standard` without it.
inline int option(int argc, char** argv, const char* name, int standard)
{
    for (int index = 1; index + 1 < argc; ++index) {
        if (std::strcmp(argv[index], name) == 0) {
            return std::atoi(argv[index + 1]);
        }
    }
    return standard;
}

/// Keeps the terminal for the figures: the program's own standard output goes to a file in a
/// folder that lives as long as the report, as it does where the console runs as a service.
class Report
{
public:
    Report() : terminal(fdopen(dup(STDOUT_FILENO), "w"))
    {
        const QByteArray path = (folder.path() + QStringLiteral("/stdout")).toLocal8Bit();
        if (!terminal || !folder.isValid() || !std::freopen(path.constData(), "w", stdout)) {
            std::fputs("no folder for temporary files\n", stderr);
            std::exit(1);
        }
    }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;
    ~Report() { std::fclose(terminal); }

    /// A folder for what the program under measurement writes.
    QString path() const { return folder.path(); }

    /// A heading, and a line for each way: time a unit of work, and the ratio to the first way.
    void table(const char* heading, const std::vector<Way>& ways, double units, const char* unit)
    {
        std::fprintf(terminal, "%s\n", heading);
        for (const Way& way : ways) {
            const double microseconds = median(way.times) * 1e6 / units;
            const bool isLong = microseconds >= 1000;
            std::fprintf(terminal, "  %-44s %8.2f %s a %s   %5.2f\n", way.name,
                         isLong ? microseconds / 1000 : microseconds, isLong ? "ms" : "us", unit,
                         ratio(way, ways.front()));
        }
        std::fflush(terminal);
    }

    /// A line of its own, as `printf` has it.
    template <class... Values> void line(const char* format, Values... values)
    {
        std::fprintf(terminal, format, values...);
        std::fflush(terminal);
    }

private:
    QTemporaryDir folder;
    std::FILE* terminal;
};

} // namespace Measure
