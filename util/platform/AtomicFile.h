#ifndef UTIL_PLATFORM_ATOMICFILE_H
#define UTIL_PLATFORM_ATOMICFILE_H

#include <iosfwd>
#include <memory>
#include <stdexcept>
#include <string>

namespace util
{

/// Thrown when a file cannot be written. The text names the file, the step that failed and the system's reason.
class AtomicFileError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
    ~AtomicFileError() override;
};

/// Writes a file so that it is there whole or not at all.
///
/// The bytes go to a temporary file in the target's folder (see TemporaryFile.h for its name). commit()
/// brings them to the disk, renames the file over the target and brings the folder's entry to the disk. At every
/// moment, power failures included, the target is either the old file or the complete new one. Without a commit(), or
/// when it fails, the target stays as it was and the temporary file is removed; only when the very last step fails, the
/// new file is in place and may still be lost in a power failure.
///
/// A target that exists keeps its access rights and its group; where the system does not let us keep the group, the new
/// one may do what everybody may. A target that is a symbolic link stays one, and what it leads to is replaced. A pipe
/// or a device is written into, without a temporary file. Two writers of one target do not disturb each other: the last
/// to commit wins.
class AtomicFile
{
public:
    /// The access rights of a target that does not exist yet.
    enum class NewFile
    {
        ofUser,   ///< those that this user's new files have
        ofFolder, ///< whoever may use the folder may read and write the file, whatever this user's new files have
    };

    /// Creates the temporary file.
    /// \throws AtomicFileError, also for a path with a zero byte in it
    explicit AtomicFile(const std::string& path, NewFile rights = NewFile::ofUser);
    /// Discards what was not committed.
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Where to write the bytes. Sets its badbit when the disk does not take them; commit() tells why.
    std::ostream& stream();
    /// Whether writing has failed so far.
    bool failed() const;
    /// Makes the file the target; at most once.
    /// \throws AtomicFileError, also for what failed while writing.
    void commit();

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace util

#endif
