#include "convert/Pipeline.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

#include <fmt/format.h>

#include "Output.h"

namespace {

constexpr unsigned kMostWorkers = 4;
constexpr auto kProgressStep = std::chrono::milliseconds(200);

class Pipeline {
public:
    Pipeline(BlockReader& reader, const LineConverter& converter, OutputFile& output, bool progress)
        : m_reader(reader), m_converter(converter), m_output(output),
          m_progress(progress && reader.BytesInAll().value_or(0) > 0)
    {
    }

    PipelineCount Run()
    {
        const unsigned others = std::clamp(std::thread::hardware_concurrency(), 1U, kMostWorkers) - 1;
        {
            std::vector<std::jthread> workers;
            // A short input ends before a second worker finds anything to do.
            for (unsigned i = 0; i < others; ++i) {
                workers.emplace_back([this] { Work(); });
            }
            Work();
        }
        ClearProgress();
        if (m_error) {
            std::rethrow_exception(m_error);
        }
        return m_count;
    }

private:
    /// One worker: a block at a time until there is no more or somebody failed.
    void Work()
    {
        Block block;
        BlockResult result;
        std::uint64_t ticket = 0;
        try {
            while (Take(block, ticket)) {
                m_converter.Convert(block, result);
                if (!Give(result, ticket)) {
                    return;
                }
            }
        } catch (...) {
            // What stands before the failing block is still written.
            std::unique_lock lock(m_turnMutex);
            m_turnChanged.wait(lock, [&] { return m_ended || m_turn == ticket; });
            if (!m_ended) {
                m_error = std::current_exception();
                m_ended = true;
            }
            m_turnChanged.notify_all();
        }
    }

    bool Take(Block& block, std::uint64_t& ticket)
    {
        const std::lock_guard lock(m_readMutex);
        if (m_noMore || Ended()) {
            return false;
        }
        ticket = m_nextTicket;
        m_noMore = true; // also when Next throws
        m_noMore = !m_reader.Next(block);
        m_nextTicket += m_noMore ? 0 : 1;
        m_bytesRead = m_reader.BytesRead();
        return !m_noMore;
    }

    bool Ended()
    {
        const std::lock_guard lock(m_turnMutex);
        return m_ended;
    }

    /// Writes a result when its turn has come. False when the run has ended before.
    bool Give(const BlockResult& result, std::uint64_t ticket)
    {
        std::unique_lock lock(m_turnMutex);
        m_turnChanged.wait(lock, [&] { return m_ended || m_turn == ticket; });
        if (m_ended) {
            return false;
        }
        // Complaints come after the lines before them were written: nobody else writes now.
        m_output.Write(result.text.View());
        if (!result.complaints.empty()) {
            ClearProgress();
            WriteToStderr(result.complaints);
        }
        m_count.good += result.good;
        m_count.bad += result.bad;
        m_count.stopped = result.stopped;
        m_ended = result.stopped;
        ShowProgress();
        ++m_turn;
        m_turnChanged.notify_all();
        return !m_ended;
    }

    void ShowProgress()
    {
        const auto now = std::chrono::steady_clock::now();
        if (!m_progress || now - m_lastShown < kProgressStep) {
            return;
        }
        m_lastShown = now;
        m_shown = true;
        const auto share = static_cast<double>(m_bytesRead) / static_cast<double>(*m_reader.BytesInAll());
        WriteToStderr(fmt::format("\r{:3.0f} %  {} lines", 100.0 * share, m_count.good + m_count.bad));
    }

    void ClearProgress()
    {
        if (m_shown) {
            WriteToStderr("\r\x1b[K");
        }
        m_shown = false;
    }

    BlockReader& m_reader;
    const LineConverter& m_converter;
    OutputFile& m_output;

    std::mutex m_readMutex; // guards the reader and the next two
    bool m_noMore = false;
    std::uint64_t m_nextTicket = 0;
    std::atomic<std::uint64_t> m_bytesRead{0};

    std::mutex m_turnMutex; // guards the output and everything below
    std::condition_variable m_turnChanged;
    std::uint64_t m_turn = 0;
    bool m_ended = false;
    std::exception_ptr m_error;
    PipelineCount m_count;
    bool m_progress;
    bool m_shown = false;
    std::chrono::steady_clock::time_point m_lastShown = std::chrono::steady_clock::now();
};

} // namespace

PipelineCount RunPipeline(BlockReader& reader, const LineConverter& converter, OutputFile& output, bool progress)
{
    return Pipeline(reader, converter, output, progress).Run();
}
