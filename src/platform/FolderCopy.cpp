#include "platform/FolderCopy.h"

#include "platform/Descriptor.h"

#include <QCoreApplication>
#include <QFile>
#include <QLockFile>

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(FolderCopy)
};

fs::path pathOf(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

QString textOf(const fs::path &path)
{
    return QFile::decodeName(path.c_str());
}

Failure failureAt(const fs::path &path, const QString &reason)
{
    return {Failure::Kind::File, Texts::tr("%1: %2.").arg(textOf(path), reason)};
}

Failure failureAt(const fs::path &path, const std::error_code &error)
{
    return failureAt(path, QString::fromStdString(error.message()));
}

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

// Folders that nobody may write to are opened first. What cannot be removed stays.
void removeTree(const fs::path &tree)
{
    std::error_code ignored;
    const auto open = [&](const fs::path &folder) {
        fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add | fs::perm_options::nofollow, ignored);
    };
    if (fs::is_directory(fs::symlink_status(tree, ignored))) {
        open(tree);
        for (fs::recursive_directory_iterator each(tree, ignored), end; each != end; each.increment(ignored)) {
            if (each->is_directory(ignored) && !each->is_symlink(ignored)) {
                open(each->path());
            }
        }
    }
    fs::remove_all(tree, ignored);
}

// A place beside the destination that is cleared away again, whatever stands there by then.
class Neighbour {
public:
    explicit Neighbour(const fs::path &destination) : m_stem(destination.parent_path() / stemFor(destination))
    {
        removeLeftOvers();
        std::string pattern = m_stem.string() + "XXXXXX";
        if (::mkdtemp(pattern.data())) {
            m_path = pattern;
        } else {
            m_error = lastError();
        }
    }
    ~Neighbour()
    {
        if (!m_path.empty()) {
            removeTree(m_path);
        }
    }
    Q_DISABLE_COPY_MOVE(Neighbour)

    const fs::path &path() const { return m_path; }
    const std::error_code &error() const { return m_error; }

private:
    static fs::path stemFor(const fs::path &destination)
    {
        fs::path stem(".");
        stem += destination.filename();
        stem += ".copy-";
        return stem;
    }

    void removeLeftOvers() const
    {
        const std::string stem = m_stem.filename().string();
        std::error_code ignored;
        for (const auto &entry : fs::directory_iterator(m_stem.parent_path(), ignored)) {
            if (entry.path().filename().string().starts_with(stem)) {
                removeTree(entry.path());
            }
        }
    }

    fs::path m_stem;
    fs::path m_path;
    std::error_code m_error;
};

// The copy is on the disk when this returns: what is exchanged for the old one is not lost with the machine's power either.
std::error_code copyFile(const fs::path &from, const fs::path &to)
{
    const Descriptor source(::open(from.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status { };
    if (source < 0 || ::fstat(source, &status) != 0) {
        return lastError();
    }
    const Descriptor copy(::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (copy < 0) {
        return lastError();
    }
    ssize_t sent = 0;
    do {
        constexpr std::size_t atOnce = 1 << 20;
        sent = ::sendfile(copy, source, nullptr, atOnce);
    } while (sent > 0);
    constexpr mode_t rights = S_IRWXU | S_IRWXG | S_IRWXO;
    if (sent < 0 || ::fchmod(copy, status.st_mode & rights) != 0 || ::fsync(copy) != 0) {
        return lastError();
    }
    return {};
}

// Fills `to`, a folder that is there.
Result<QString> copyInto(const fs::path &from, const fs::path &to)
{
    std::error_code error;
    for (fs::directory_iterator each(from, error), end; !error && each != end; each.increment(error)) {
        const fs::path &source = each->path();
        const fs::path copy = to / source.filename();
        std::error_code problem;
        switch (each->symlink_status(problem).type()) {
        case fs::file_type::symlink:
            fs::copy_symlink(source, copy, problem);
            break;
        case fs::file_type::regular:
            problem = copyFile(source, copy);
            break;
        case fs::file_type::directory:
            if (fs::create_directory(copy, problem)) {
                if (auto copied = copyInto(source, copy); !copied) {
                    return copied;
                }
            }
            break;
        default:
            if (!problem) {
                return failureAt(source, Texts::tr("It is neither a file nor a folder nor a link"));
            }
        }
        if (problem) {
            return failureAt(source, problem);
        }
    }
    if (error) {
        return failureAt(from, error);
    }
    // Only now, since a folder that nobody may write to could not have been filled.
    fs::permissions(to, fs::status(from, error).permissions(), error);
    if (error) {
        return failureAt(to, error);
    }
    return textOf(to);
}

std::error_code exchange(const fs::path &copy, const fs::path &destination)
{
    std::error_code error;
    if (!fs::exists(fs::symlink_status(destination, error))) {
        return ::rename(copy.c_str(), destination.c_str()) == 0 ? std::error_code() : lastError();
    }
    if (::renameat2(AT_FDCWD, copy.c_str(), AT_FDCWD, destination.c_str(), RENAME_EXCHANGE) == 0) {
        return {};
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return lastError();
    }
    const fs::path aside = copy.parent_path() / "before";
    fs::rename(destination, aside, error);
    if (error) {
        return error;
    }
    fs::rename(copy, destination, error);
    if (error) {
        std::error_code ignored;
        fs::rename(aside, destination, ignored);
    }
    return error;
}

} // namespace

Result<QString> replaceFolder(const QString &source, const QString &destination)
{
    const fs::path from = pathOf(source);
    const fs::path to = pathOf(destination);
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    if (error) {
        return failureAt(to.parent_path(), error);
    }
    const fs::path top = fs::canonical(from, error);
    if (error || !fs::is_directory(top, error)) {
        return failureAt(from, error ? error : std::make_error_code(std::errc::not_a_directory));
    }
    for (fs::path above = fs::canonical(to.parent_path(), error); above.has_relative_path();
         above = above.parent_path()) {
        if (above == top) {
            return failureAt(to, Texts::tr("It lies within what is to be copied"));
        }
    }

    QLockFile lock(destination + u".lock"_s);
    lock.setStaleLockTime(0); // a lock is stale when its process is gone, not when it is old
    if (!lock.tryLock() && lock.error() == QLockFile::LockFailedError) {
        return failureAt(to, Texts::tr("Something else is copying there"));
    }
    const Neighbour neighbour(to);
    if (neighbour.error()) {
        return failureAt(to.parent_path(), neighbour.error());
    }
    const fs::path copy = neighbour.path() / to.filename();
    fs::create_directory(copy, error);
    if (error) {
        return failureAt(copy, error);
    }
    if (auto copied = copyInto(top, copy); !copied) {
        return copied.failure();
    }
    if (const std::error_code problem = exchange(copy, to)) {
        return failureAt(to, problem);
    }
    return destination;
}

} // namespace quillmere
