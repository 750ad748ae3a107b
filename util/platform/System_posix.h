#ifndef UTIL_PLATFORM_SYSTEM_POSIX_H
#define UTIL_PLATFORM_SYSTEM_POSIX_H

#include <cstddef>

#include <dirent.h>
#include <sys/stat.h>
#include <sys/types.h>

/// The calls to the operating system that files, folders and locks are made of. All go through one table, so that a
/// test can have any of them fail. Results and errno are the system's; a call that a signal interrupted is made again
/// where that is safe.
namespace util::system
{

/// The system's functions; only tests put others in their place.
struct Calls
{
    int (*openat)(int folder, const char* path, int flags, mode_t mode);
    int (*close)(int file);
    ssize_t (*read)(int file, void* bytes, std::size_t size);
    ssize_t (*write)(int file, const void* bytes, std::size_t size);
    int (*fsync)(int file);
    int (*fchmod)(int file, mode_t mode);
    int (*fchown)(int file, uid_t user, gid_t group);
    int (*fstat)(int file, struct stat* result);
    int (*fstatat)(int folder, const char* path, struct stat* result, int flags);
    int (*faccessat)(int folder, const char* path, int rights, int flags);
    int (*rename)(const char* from, const char* to);
    int (*unlinkat)(int folder, const char* path, int flags);
    int (*flock)(int file, int operation);
    dirent* (*readdir)(DIR* stream);
};
extern Calls calls;

int open(const char* path, int flags, mode_t mode = 0);
int openat(int folder, const char* path, int flags, mode_t mode = 0);
/// Closes a descriptor, once: after an interruption it is closed all the same.
int close(int file);
ssize_t read(int file, void* bytes, std::size_t size);
ssize_t write(int file, const void* bytes, std::size_t size);
int fsync(int file);
int fchmod(int file, mode_t mode);
int fchown(int file, uid_t user, gid_t group);
int fstat(int file, struct stat* result);
int fstatat(int folder, const char* path, struct stat* result, int flags);
int faccessat(int folder, const char* path, int rights, int flags);
/// Not repeated: whether an interrupted call has done its work cannot be told.
int rename(const char* from, const char* to);
int unlinkat(int folder, const char* path, int flags);
int flock(int file, int operation);
dirent* readdir(DIR* stream);

} // namespace util::system

#endif
