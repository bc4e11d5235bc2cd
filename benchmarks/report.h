#pragma once

// Runs the benchmarks of a program, and prints tables of their times and ratios as the guide has
// them.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zel::bench {

/// Runs each benchmark several times, in turn with the others, so that what else the machine does
/// meets all of them alike. The flags of Google Benchmark may say otherwise.
class Report
{
public:
    Report(int argc, char** argv)
    {
        std::vector<char*> arguments(argv, argv + argc);
        std::vector<std::string> defaults = {"--benchmark_repetitions=7",
                                             "--benchmark_min_time=0.1",
                                             "--benchmark_enable_random_interleaving=true"};
        for (std::size_t i = 0; i < defaults.size(); ++i) {
            arguments.insert(arguments.begin() + 1 + static_cast<std::ptrdiff_t>(i),
                             defaults[i].data());
        }
        int count = static_cast<int>(arguments.size());
        arguments.push_back(nullptr);
        benchmark::Initialize(&count, arguments.data());
        Collector collector(*this);
        benchmark::RunSpecifiedBenchmarks(&collector);
    }

    /// What main() returns: 0 unless a benchmark could not do its work.
    int status() const
    {
        return m_failed ? 1 : 0;
    }

    /// The median of the seconds that one turn of a benchmark took, of the processor, or what
    /// the benchmark says if it takes its time itself. Not a number for one that was not run.
    double seconds(const std::string& name) const
    {
        const auto found = m_times.find(name);
        if (found == m_times.end()) {
            return std::numeric_limits<double>::quiet_NaN();
        }
        std::vector<double> times = found->second;
        std::sort(times.begin(), times.end());
        return times[times.size() / 2];
    }

    /// "3.2 µs"
    static std::string time(double seconds)
    {
        if (std::isnan(seconds)) {
            return "-";
        }
        static const std::vector<std::pair<double, const char*>> units = {
            {1.0, "s"}, {1e-3, "ms"}, {1e-6, "\u00b5s"}, {1e-9, "ns"}};
        for (const auto& [size, name] : units) {
            if (seconds >= size) {
                return number(seconds / size) + ' ' + name;
            }
        }
        return number(seconds / 1e-9) + " ns";
    }

    /// Two digits behind the point below ten, else none: "1.08", "670".
    static std::string number(double value)
    {
        if (std::isnan(value)) {
            return "-";
        }
        char text[32];
        std::snprintf(text, sizeof text, "%.*f", value < 10.0 ? 2 : value < 100.0 ? 1 : 0, value);
        return text;
    }

    /// Prints a table; its first row is the head.
    static void print(const std::vector<std::vector<std::string>>& rows)
    {
        std::printf("\n");
        for (const auto& row : rows) {
            std::printf("|");
            for (const std::string& cell : row) {
                std::printf(" %s |", cell.c_str());
            }
            std::printf("\n");
            if (&row == &rows.front()) {
                std::printf("|");
                for (std::size_t i = 0; i < row.size(); ++i) {
                    std::printf("---|");
                }
                std::printf("\n");
            }
        }
        std::printf("\n");
    }

private:
    class Collector : public benchmark::ConsoleReporter
    {
    public:
        explicit Collector(Report& report)
            : ConsoleReporter(OO_Tabular)
            , m_report(report)
        {}

        void ReportRuns(const std::vector<Run>& runs) override
        {
            std::vector<Run> shown;
            for (const Run& run : runs) {
                m_report.add(run);
                if (run.repetitions <= 1 || run.run_type == Run::RT_Aggregate ||
                    run.error_occurred) {
                    shown.push_back(run);
                }
            }
            if (!shown.empty()) {
                ConsoleReporter::ReportRuns(shown);
            }
        }

    private:
        Report& m_report;
    };

    void add(const benchmark::BenchmarkReporter::Run& run)
    {
        m_failed = m_failed || run.error_occurred;
        if (run.error_occurred || run.run_type != benchmark::BenchmarkReporter::Run::RT_Iteration) {
            return;
        }
        const std::string& arguments = run.run_name.args;
        const std::string name =
            run.run_name.function_name + (arguments.empty() ? "" : "/" + arguments);
        const bool takenItself = run.run_name.time_type == "manual_time";
        m_times[name].push_back(
            (takenItself ? run.real_accumulated_time : run.cpu_accumulated_time) /
            static_cast<double>(run.iterations));
    }

    std::map<std::string, std::vector<double>> m_times;
    bool m_failed = false;
};

} // namespace zel::bench
