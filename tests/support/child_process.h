#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

// How often a test does what is done many times over: as often as a quick run has time for, or more
// when the environment asks for it (CORVANE_KILLS, CORVANE_ADDS, CORVANE_CUTS).
inline int rounds(const char* variable, int quick)
{
    return std::max(qEnvironmentVariableIntValue(variable), quick);
}

// Another copy of the program: a child process that runs a piece of the test and tells of each step
// that it has done. Nothing may be open when it starts.
class ChildProcess {
public:
    using StepDone = std::function<void()>;

    explicit ChildProcess(const std::function<bool(const StepDone&)>& work)
    {
        int ends[2] = {-1, -1};
        if (pipe(ends) != 0)
            return;
        m_pid = fork();
        if (m_pid == 0) {
            close(ends[0]);
            const bool done = work([&] { (void)!write(ends[1], "x", 1); });
            _exit(done ? 0 : 1);
        }
        close(ends[1]);
        m_steps = ends[0];
    }

    // For work without steps to wait for.
    explicit ChildProcess(const std::function<bool()>& work)
        : ChildProcess([&](const StepDone&) { return work(); })
    {
    }

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    ~ChildProcess()
    {
        killNow();
        close(m_steps);
    }

    // Waits until this many steps were done since the last call; false when the child ended before.
    bool waitForSteps(int number)
    {
        while (number > 0 && readStep())
            --number;
        return number == 0;
    }

    // Kills the child and gives the number of steps that it had told of beyond those waited for.
    int killNow()
    {
        int told = 0;
        if (m_pid > 0) {
            kill(m_pid, SIGKILL);
            while (readStep())
                ++told;
            waitpid(m_pid, nullptr, 0);
            m_pid = -1;
        }
        return told;
    }

    // Waits for its end; true when it did what it was to do.
    bool succeeded()
    {
        int status = 0;
        const bool ended = m_pid > 0 && waitpid(m_pid, &status, 0) == m_pid;
        m_pid = -1;
        return ended && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

private:
    bool readStep() const
    {
        char step = 0;
        ssize_t got = 0;
        do {
            got = read(m_steps, &step, 1);
        } while (got < 0 && errno == EINTR);
        return got == 1;
    }

    pid_t m_pid = -1;
    int m_steps = -1;
};

// Runs a work in child processes and kills each, at moments that lie all over the time that it
// takes undisturbed: more often towards the end, where files change places. `prepare` comes before
// each run and `look` after it; in between nothing may be open here.
inline void killAtAllMoments(int kills, const std::function<void()>& prepare,
                             const std::function<bool()>& work, const std::function<void()>& look)
{
    using Clock = std::chrono::steady_clock;
    prepare();
    const auto began = Clock::now();
    ASSERT_TRUE(ChildProcess(work).succeeded());
    const auto whole = Clock::now() - began;
    for (int left = kills; left > 0; --left) {
        SCOPED_TRACE(kills - left);
        prepare();
        {
            ChildProcess copy(work);
            std::this_thread::sleep_for(whole - whole * left * left / (kills * kills));
        }
        look();
    }
}
