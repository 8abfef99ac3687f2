#include "tools/convert/output_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>

#include "tools/convert/input.h"

namespace TovikXmlConvert {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinks = 40;
constexpr mode_t kPermissions = 0777;
constexpr uid_t kNoChange = static_cast<uid_t>(-1);

[[noreturn]] void Refuse(const std::string& name, int error) {
  throw FileError("cannot write " + name + ": " + std::strerror(error));
}

struct CloseFile {
  void operator()(std::FILE* file) const {
    if (file != stdout) std::fclose(file);
  }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// What is still in the buffer may fail as well.
bool IsWritten(std::FILE* file, const std::vector<std::string_view>& pieces) {
  for (const std::string_view piece : pieces) {
    if (!piece.empty() && std::fwrite(piece.data(), 1, piece.size(), file) != piece.size()) {
      return false;
    }
  }
  return std::fflush(file) == 0;
}

void WriteThrough(const std::string& name, const std::vector<std::string_view>& pieces) {
  const File file(name == "-" ? stdout : std::fopen(name.c_str(), "wb"));
  if (!file || !IsWritten(file.get(), pieces)) Refuse(name, errno);
}

// Where a file is or is to be, behind all links. Nothing where these lead to what is open already,
// as /dev/stdout does.
std::optional<fs::path> PlaceOf(fs::path path) {
  for (int links = 0; links < kMaxLinks; ++links) {
    const fs::path folder = fs::canonical(path.has_parent_path() ? path.parent_path() : ".");
    if (folder.string().starts_with("/proc/")) return std::nullopt;
    path = folder / path.filename();
    if (!fs::is_symlink(path)) return path;
    path = folder / fs::read_symlink(path);
  }
  throw fs::filesystem_error("", std::make_error_code(std::errc::too_many_symbolic_link_levels));
}

// What a new file beside its place is to become; it vanishes if it does not.
class NewFile {
 public:
  NewFile(const std::string& name, const fs::path& place)
      : m_name(name),
        m_place(place),
        m_temporary((place.parent_path() / ".tovikxml-convert-XXXXXX").string()) {
    const int descriptor = mkstemp(m_temporary.data());
    if (descriptor == -1) Refuse(m_name, errno);
    m_file.reset(fdopen(descriptor, "wb"));
    if (m_file) return;
    const int error = errno;
    close(descriptor);
    unlink(m_temporary.c_str());
    Refuse(m_name, error);
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() {
    if (!m_isInPlace) unlink(m_temporary.c_str());
  }

  void Write(const std::vector<std::string_view>& pieces, const struct stat* replaced) {
    const int descriptor = fileno(m_file.get());
    if (!IsWritten(m_file.get(), pieces) || !SetPermissions(descriptor, replaced) ||
        fsync(descriptor) != 0 || std::fclose(m_file.release()) != 0 ||
        std::rename(m_temporary.c_str(), m_place.c_str()) != 0) {
      Refuse(m_name, errno);
    }
    m_isInPlace = true;
  }

 private:
  // The owner can be kept by few, and need not be. What the group may, another group may not.
  static bool SetPermissions(int descriptor, const struct stat* replaced) {
    if (replaced) {
      const bool isGroupKept = fchown(descriptor, replaced->st_uid, replaced->st_gid) == 0 ||
                               fchown(descriptor, kNoChange, replaced->st_gid) == 0;
      const mode_t kept = isGroupKept ? kPermissions : kPermissions & ~mode_t{S_IRWXG};
      return fchmod(descriptor, replaced->st_mode & kept) == 0;
    }
    const mode_t mask = umask(0);
    umask(mask);
    return fchmod(descriptor, 0666 & ~mask) == 0;
  }

  std::string m_name;
  fs::path m_place;
  std::string m_temporary;
  File m_file;
  bool m_isInPlace = false;
};

}  // namespace

void WriteOutput(const std::string& name, const std::vector<std::string_view>& pieces) try {
  if (name == "-") return WriteThrough(name, pieces);
  const std::optional<fs::path> place = PlaceOf(name);
  if (!place) return WriteThrough(name, pieces);
  struct stat replaced {};
  const bool exists = stat(place->c_str(), &replaced) == 0;
  if (exists && !S_ISREG(replaced.st_mode)) return WriteThrough(name, pieces);
  if (exists && access(place->c_str(), W_OK) != 0) Refuse(name, errno);
  NewFile(name, *place).Write(pieces, exists ? &replaced : nullptr);
} catch (const fs::filesystem_error& e) {
  Refuse(name, e.code().value());
}

}  // namespace TovikXmlConvert
