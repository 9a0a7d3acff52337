#include "files/game_lock.h"

#include "files/open_file.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace morvek {
namespace {

using Clock = std::chrono::steady_clock;

constexpr off_t transactionByte = 0;
constexpr off_t nextByte = 1;
constexpr off_t boardByte = 2;
constexpr off_t firstUserByte = off_t{1} << 32;
constexpr off_t toTheEnd = 0; // a length

// What follows on one key, up to five transactions, waits two seconds at most.
constexpr std::chrono::milliseconds longestWait(1800);
constexpr std::chrono::milliseconds waitAfterFailure(40);

// FNV-1a, 64 bits.
off_t byteOf(std::string_view user) {
    std::uint64_t hash = 14695981039346656037U;
    for (const char one : user) {
        hash = (hash ^ static_cast<unsigned char>(one)) * 1099511628211U;
    }
    return firstUserByte + static_cast<off_t>(hash >> 2U);
}

struct flock rangeOf(off_t byte, short type) {
    struct flock range {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = byte;
    range.l_len = 1;
    return range;
}

// From the deadline on, interrupts blocking calls again and again: a single signal might come just
// before such a call. The handler stays, as a last signal may be on its way.
class Interrupter {
public:
    explicit Interrupter(Clock::time_point deadline) {
        struct sigaction action {};
        action.sa_handler = [](int) {};
        sigaction(SIGRTMIN, &action, nullptr);
        sigset_t signals;
        sigemptyset(&signals);
        sigaddset(&signals, SIGRTMIN);
        sigprocmask(SIG_UNBLOCK, &signals, nullptr);
        sigevent event{};
        event.sigev_notify = SIGEV_SIGNAL;
        event.sigev_signo = SIGRTMIN;
        isCreated_ = timer_create(CLOCK_MONOTONIC, &event, &timer_) == 0;
        const auto span = std::max<Clock::duration>(deadline - Clock::now(), Clock::duration(1));
        const itimerspec times{asTimespec(std::chrono::milliseconds(10)), asTimespec(span)};
        isRunning_ = isCreated_ && timer_settime(timer_, 0, &times, nullptr) == 0;
    }
    ~Interrupter() {
        if (isCreated_) {
            timer_delete(timer_);
        }
    }
    Interrupter(const Interrupter&) = delete;
    Interrupter& operator=(const Interrupter&) = delete;

    [[nodiscard]] bool isRunning() const { return isRunning_; }

private:
    static timespec asTimespec(std::chrono::nanoseconds span) {
        timespec time{};
        time.tv_sec = static_cast<std::time_t>(span.count() / 1'000'000'000);
        time.tv_nsec = static_cast<long>(span.count() % 1'000'000'000);
        return time;
    }

    timer_t timer_{};
    bool isCreated_ = false;
    bool isRunning_ = false;
};

} // namespace

GameLock gameLock(lockFileName);

GameLock::GameLock(std::string path) : path_(std::move(path)), patience_(longestWait) {}

GameLock::~GameLock() { close(); }

bool GameLock::enter(std::string_view user) {
    const Transaction transaction(*this);
    if (user.empty() || !openToLock()) {
        return true;
    }
    const off_t byte = byteOf(user);
    const Outcome outcome = tryToTake(byte, F_WRLCK);
    userByte_ = outcome == Outcome::taken ? byte : 0;
    return outcome != Outcome::busy;
}

void GameLock::leave() {
    if (userByte_ != 0) {
        release(userByte_);
    }
    userByte_ = 0;
}

bool GameLock::isInside(std::string_view user) {
    return !user.empty() && othersHold(byteOf(user), 1);
}

bool GameLock::isAnybodyInside() { return othersHold(firstUserByte, toTheEnd); }

void GameLock::setBoardTaken(bool taken) {
    if (taken && openToLock()) {
        boardTaken_ = tryToTake(boardByte, F_WRLCK) == Outcome::taken;
    } else if (boardTaken_) {
        release(boardByte);
        boardTaken_ = false;
    }
}

bool GameLock::isBoardTaken() { return othersHold(boardByte, 1); }

// Who comes waits for nextByte first. So a process that has just ended a transaction cannot begin
// another one before those that wait already.
bool GameLock::begin() {
    if (!openToLock()) {
        return true;
    }
    const Moment deadline = Clock::now() + patience_;
    const Outcome next = tryToTake(nextByte, F_WRLCK);
    works_ = next != Outcome::unsupported;
    if (!works_) {
        return true;
    }
    bool held = next == Outcome::taken || waitFor(nextByte, deadline);
    if (held) {
        held = tryToTake(transactionByte, F_WRLCK) == Outcome::taken ||
               waitFor(transactionByte, deadline);
        release(nextByte);
    }
    patience_ = held ? longestWait : waitAfterFailure;
    return held;
}

void GameLock::end() { release(transactionByte); }

bool GameLock::openToLock() {
    if (mayLock_ && isStillThere(descriptor_, path_)) {
        return true;
    }
    close();
    descriptor_ = openShared(path_);
    mayLock_ = descriptor_ >= 0;
    if (mayLock_ && userByte_ != 0) { // the file that held the mark was removed
        tryToTake(userByte_, F_WRLCK);
    }
    if (mayLock_ && boardTaken_) {
        tryToTake(boardByte, F_WRLCK);
    }
    return mayLock_;
}

bool GameLock::openToAsk() {
    if (mayLock_) {
        return openToLock();
    }
    close();
    descriptor_ = openFile(path_, O_RDONLY);
    return descriptor_ >= 0;
}

void GameLock::close() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
    descriptor_ = -1;
    mayLock_ = false;
}

GameLock::Outcome GameLock::tryToTake(off_t byte, short type) {
    struct flock range = rangeOf(byte, type);
    int result = 0;
    while ((result = ::fcntl(descriptor_, F_OFD_SETLK, &range)) != 0 && errno == EINTR) {
    }
    if (result == 0) {
        return Outcome::taken;
    }
    return errno == EAGAIN || errno == EACCES ? Outcome::busy : Outcome::unsupported;
}

bool GameLock::waitFor(off_t byte, Moment deadline) {
    const Interrupter interrupter(deadline);
    struct flock range = rangeOf(byte, F_WRLCK);
    while (interrupter.isRunning() && Clock::now() < deadline) {
        if (::fcntl(descriptor_, F_OFD_SETLKW, &range) == 0) {
            return true;
        }
        if (errno != EINTR) {
            return false;
        }
    }
    return false;
}

void GameLock::release(off_t byte) {
    if (mayLock_) {
        tryToTake(byte, F_UNLCK);
    }
}

bool GameLock::othersHold(off_t first, off_t length) {
    struct flock range = rangeOf(first, F_WRLCK);
    range.l_len = length;
    return openToAsk() && ::fcntl(descriptor_, F_OFD_GETLK, &range) == 0 && range.l_type != F_UNLCK;
}

} // namespace morvek
