// Loaded into the program before the C library. The clock stands still, all draws are 0 or follow
// from MORVEK_SEED, and the program's calls that touch a file fail as MORVEK_FAULT says. They are
// counted from the chdir into the game directory on.
//
//   error N      call N fails
//   full N       call N, when it writes, does half; whatever needs room afterwards fails
//   short 0      each read and write does half
//   interrupt 0  every second read and write is interrupted
//   kill N       the program is killed at call N
//   pause 0      the program stops before it renames its first file
//   yield 0      every fifth call waits first, so that other programs come in between
//
// Into the pipe MORVEK_WAITS goes a '.' before each wait for a key, and an 'x' when the program
// ends before call N.
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime> // on 32-bit processors it gives time() another name

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

char kind = 0; // the first letter of the fault; 0 before the program is in its directory
int struckCall = 0;
int calls = 0;
bool interrupted = false;

// Where a file offset is meant, the name is that of the routine with one of 64 bits.
template <typename Result, typename... Arguments>
Result real(const char* name, Arguments... arguments) {
    return reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, name))(arguments...);
}

void tell(const char* byte) {
    const int waits = real<int>("open64", std::getenv("MORVEK_WAITS"), O_WRONLY | O_CLOEXEC, 0);
    real<ssize_t>("write", waits, byte, std::size_t{1});
    close(waits);
}

enum Nature { plain, needsRoom, slow };

bool fails(Nature nature) {
    calls += kind != 0 ? 1 : 0;
    if (kind == 'k' && calls == struckCall) {
        raise(SIGKILL);
    }
    if (kind == 'y' && (calls + getpid()) % 5 == 0) {
        usleep(20);
    }
    errno = kind == 'f' ? ENOSPC : kind == 'i' ? EINTR : EIO;
    if (kind == 'i' && nature == slow) {
        interrupted = !interrupted;
        return interrupted;
    }
    return (kind == 'e' && calls == struckCall) ||
           (kind == 'f' && calls > struckCall && nature == needsRoom);
}

bool isFile(int descriptor) {
    struct stat status {};
    return kind != 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

template <typename Bytes, typename... Position>
ssize_t transfer(const char* name, Nature nature, int descriptor, Bytes* bytes, std::size_t size,
                 Position... position) {
    if (isFile(descriptor)) {
        if (fails(kind == 'i' ? slow : nature)) {
            return -1;
        }
        if (kind == 's' || (kind == 'f' && nature == needsRoom && calls == struckCall)) {
            size = (size + 1) / 2;
        }
    }
    return real<ssize_t>(name, descriptor, bytes, size, position...);
}

} // namespace

extern "C" {

time_t time(time_t* now) noexcept {
    constexpr time_t moment = 1'800'000'000;
    return now != nullptr ? *now = moment : moment;
}

void srand(unsigned) noexcept {}

int rand() noexcept {
    static const char* seed = std::getenv("MORVEK_SEED");
    static std::uint64_t state = seed != nullptr ? std::strtoull(seed, nullptr, 10) : 0;
    state = state * 48271 % 2147483647;
    return static_cast<int>(state);
}

int chdir(const char* path) noexcept {
    const int result = real<int>("chdir", path);
    std::sscanf(std::getenv("MORVEK_FAULT"), "%c%*s %d", &kind, &struckCall);
    std::atexit([] {
        if (calls < struckCall) {
            tell("x");
        }
    });
    return result;
}

int open(const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    const Nature nature = (flags & O_CREAT) != 0 ? needsRoom : plain;
    return fails(nature) ? -1 : real<int>("open64", path, flags, mode);
}

ssize_t read(int descriptor, void* bytes, std::size_t size) {
    return transfer("read", plain, descriptor, bytes, size);
}

ssize_t pread(int descriptor, void* bytes, std::size_t size, off_t position) {
    return transfer("pread64", plain, descriptor, bytes, size, position);
}

ssize_t write(int descriptor, const void* bytes, std::size_t size) {
    return transfer("write", needsRoom, descriptor, bytes, size);
}

ssize_t pwrite(int descriptor, const void* bytes, std::size_t size, off_t position) {
    return transfer("pwrite64", needsRoom, descriptor, bytes, size, position);
}

int fcntl(int descriptor, int command, ...) {
    std::va_list rest;
    va_start(rest, command);
    void* const range = va_arg(rest, void*);
    va_end(rest);
    return fails(slow) ? -1 : real<int>("fcntl64", descriptor, command, range);
}

int unlink(const char* path) noexcept { return fails(plain) ? -1 : real<int>("unlink", path); }

int fchmod(int descriptor, mode_t mode) noexcept {
    return fails(plain) ? -1 : real<int>("fchmod", descriptor, mode);
}

int ftruncate(int descriptor, off_t size) noexcept {
    return fails(plain) ? -1 : real<int>("ftruncate64", descriptor, size);
}

// Saves time: what a killed program wrote is there without it.
int fsync(int) { return fails(needsRoom) ? -1 : 0; }

int rename(const char* from, const char* to) noexcept {
    if (kind == 'p') {
        kind = 'g'; // it goes on without faults
        raise(SIGSTOP);
    }
    return fails(needsRoom) ? -1 : real<int>("rename", from, to);
}

int poll(pollfd* ends, nfds_t count, int timeout) {
    const int ready = real<int>("poll", ends, count, 0);
    if (ready != 0 || timeout == 0) {
        return ready;
    }
    // No signal may come between the report of the wait and the wait itself.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &before);
    tell(".");
    const timespec longest{timeout / 1000, timeout % 1000 * 1'000'000L};
    const int result = ppoll(ends, count, timeout < 0 ? nullptr : &longest, &before);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    return result;
}

} // extern "C"
