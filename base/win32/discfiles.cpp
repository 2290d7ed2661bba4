#include "base/platform.h"

#include "base/syserr.h"

#include <windows.h>

namespace
{

HANDLE systemhandle(filehandle handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

DWORD unsign(int32_t length)
{
    return static_cast<DWORD>(length);
}

} // namespace

uint32_t platformlasterror()
{
    return GetLastError();
}

void platformerrortext(uint32_t code, char *out, int32_t size)
{
    constexpr DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    if (!FormatMessageA(flags, nullptr, code, 0, out, unsign(size), nullptr)) out[0] = 0;
}

errorblock *platformopen(const char *path, platformopening how, filehandle *handle)
{
    constexpr DWORD dispositions[] = {OPEN_EXISTING, OPEN_ALWAYS, TRUNCATE_EXISTING, CREATE_NEW};
    DWORD access = how == PLATFORMREAD ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
    HANDLE file = CreateFileA(path, access, FILE_SHARE_READ, nullptr, dispositions[how],
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    *handle = file == INVALID_HANDLE_VALUE ? 0 : reinterpret_cast<filehandle>(file);
    return *handle ? nullptr : syserr("CreateFile", "%s", path);
}

errorblock *platformclose(filehandle handle)
{
    return CloseHandle(systemhandle(handle)) ? nullptr : syserr("CloseHandle");
}

errorblock *platformread(filehandle handle, void *data, int32_t length, int32_t *count)
{
    DWORD moved = 0;
    BOOL done = ReadFile(systemhandle(handle), data, unsign(length), &moved, nullptr);
    *count = static_cast<int32_t>(moved);
    return done ? nullptr : syserr("ReadFile");
}

errorblock *platformwrite(filehandle handle, const void *data, int32_t length, int32_t *count)
{
    DWORD moved = 0;
    BOOL done = WriteFile(systemhandle(handle), data, unsign(length), &moved, nullptr);
    *count = static_cast<int32_t>(moved);
    return done ? nullptr : syserr("WriteFile");
}

errorblock *platformseek(filehandle handle, int32_t position)
{
    DWORD at = SetFilePointer(systemhandle(handle), position, nullptr, FILE_BEGIN);
    return at == INVALID_SET_FILE_POINTER ? syserr("SetFilePointer") : nullptr;
}

errorblock *platformtell(filehandle handle, int32_t *position)
{
    DWORD at = SetFilePointer(systemhandle(handle), 0, nullptr, FILE_CURRENT);
    *position = at == INVALID_SET_FILE_POINTER ? 0 : static_cast<int32_t>(at);
    return at == INVALID_SET_FILE_POINTER ? syserr("SetFilePointer") : nullptr;
}

errorblock *platformsize(filehandle handle, int32_t *size)
{
    LARGE_INTEGER length = {};
    *size = 0;
    if (!GetFileSizeEx(systemhandle(handle), &length)) return syserr("GetFileSize");
    if (length.QuadPart > INT32_MAX) return syserrcode(ERROR_FILE_TOO_LARGE, "GetFileSize");
    *size = static_cast<int32_t>(length.QuadPart);
    return nullptr;
}

errorblock *platformtruncate(filehandle handle)
{
    return SetEndOfFile(systemhandle(handle)) ? nullptr : syserr("SetEndOfFile");
}

errorblock *platformsync(filehandle handle)
{
    return FlushFileBuffers(systemhandle(handle)) ? nullptr : syserr("FlushFileBuffers");
}

FILE *platformstream(const char *path, const char *mode)
{
    return std::fopen(path, mode);
}
