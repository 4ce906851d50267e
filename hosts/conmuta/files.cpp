#include "conmuta/files.h"

#include <cerrno>
#include <chrono>
#include <ctime>
#include <iterator>
#include <system_error>

#include "conmuta/user_error.h"
#include "conmuta/utf8.h"
#include "platform/unicode.h"

namespace conmuta::host {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& path, std::string_view what) {
  throw UserError(ShownPath(path).append(": ").append(what));
}

// What the system said last, for the reasons that a person can do something about.
std::string_view Reason(int code) {
  switch (code) {
    case ENOENT:
    case ENOTDIR:
      return "no existe";
    case EACCES:
    case EPERM:
      return "no hay permiso";
    case ENOSPC:
      return "el disco está lleno";
    case EROFS:
      return "el disco es de sólo lectura";
    case ENAMETOOLONG:
    case EINVAL:
      return "el nombre no es válido";
    default:
      return "el sistema no lo permite";
  }
}

bool Exists(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

bool IsFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

}  // namespace

fs::path PathOf(std::string_view argument) {
#ifdef _WIN32
  return fs::path(FromUtf8(argument));
#else
  return fs::path(argument);  // any bytes are a name
#endif
}

Text CorePath(const fs::path& path) {
  try {
    return path.u16string();
  } catch (const std::system_error&) {
    Fail(path, "el nombre no es UTF-8");
  }
}

std::string ShownPath(const fs::path& path) {
#ifdef _WIN32
  return Shown(path.u16string());
#else
  return Shown(FromUtf8(path.native()));
#endif
}

std::ifstream OpenToRead(const fs::path& path) {
  if (IsFolder(path)) Fail(path, "es una carpeta, no un archivo");
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) Fail(path, std::string("no se puede leer: ").append(Reason(errno)));
  return file;
}

std::string ReadWhole(const fs::path& path, std::size_t most) {
  std::ifstream file = OpenToRead(path);
  std::string bytes(most + 1, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (file.bad()) Fail(path, "no se puede leer");
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  if (bytes.size() > most) Fail(path, "es demasiado grande");
  return bytes;
}

void CheckMayWrite(const fs::path& path, Existing existing) {
  if (IsFolder(path)) Fail(path, "es una carpeta, no un archivo");
  if (existing == Existing::kStays && Exists(path)) {
    Fail(path, "ya existe; --reemplaza lo escribe de nuevo");
  }
}

std::ofstream OpenToWrite(const fs::path& path, Existing existing) {
  CheckMayWrite(path, existing);
  errno = 0;
  std::ofstream file(path, std::ios::binary);
  if (!file) Fail(path, std::string("no se puede escribir: ").append(Reason(errno)));
  return file;
}

void WriteWhole(const fs::path& path, std::string_view bytes, Existing existing) {
  std::ofstream file = OpenToWrite(path, existing);
  errno = 0;
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) Fail(path, std::string("no se puede escribir: ").append(Reason(errno)));
}

void MakeFolder(const fs::path& path) {
  std::error_code error;
  fs::create_directories(path, error);
  if (!IsFolder(path)) Fail(path, "no se puede crear la carpeta");
}

CivilDate DateOfFile(const fs::path& path) {
  std::error_code error;
  const auto written = fs::last_write_time(path, error);
  if (error) Fail(path, "no se sabe de qué fecha es");
  const auto moment = std::chrono::file_clock::to_sys(written).time_since_epoch();
  // Of 32 bits in 32-bit Windows programs.
  const auto seconds =
      static_cast<std::time_t>(std::chrono::duration_cast<std::chrono::seconds>(moment).count());
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &seconds);
#else
  localtime_r(&seconds, &local);
#endif
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

}  // namespace conmuta::host
