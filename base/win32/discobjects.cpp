#include "base/platform.h"

#include "base/syserr.h"
#include "base/text.h"

#include <windows.h>

namespace
{

void infofrom(DWORD attributes, DWORD length, FILETIME written, platforminfo *info)
{
    info->objecttype = attributes & FILE_ATTRIBUTE_DIRECTORY ? 2 : 1;
    info->length = length;
    info->attributes = attributes;
    info->time = static_cast<uint64_t>(written.dwHighDateTime) << 32 | written.dwLowDateTime;
}

// The codes of a name that stands for nothing.
bool ismissing(DWORD code)
{
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ||
           code == ERROR_INVALID_NAME || code == ERROR_BAD_PATHNAME;
}

void entryout(const WIN32_FIND_DATAA &data, platforminfo *info, char *name, int32_t size)
{
    infofrom(data.dwFileAttributes, data.nFileSizeLow, data.ftLastWriteTime, info);
    lstrcpynA(name, data.cFileName, size);
}

} // namespace

errorblock *platforminfoget(const char *path, platforminfo *info)
{
    WIN32_FILE_ATTRIBUTE_DATA data;
    *info = {};
    if (GetFileAttributesExA(path, GetFileExInfoStandard, &data))
        infofrom(data.dwFileAttributes, data.nFileSizeLow, data.ftLastWriteTime, info);
    else if (!ismissing(GetLastError()))
        return syserr("GetFileAttributesEx", "%s", path);
    return nullptr;
}

int32_t platformobject(const char *path)
{
    DWORD attributes = GetFileAttributesA(path);
    if (attributes == INVALID_FILE_ATTRIBUTES) return 0;
    return attributes & FILE_ATTRIBUTE_DIRECTORY ? 2 : 1;
}

errorblock *platformsettime(const char *path, uint64_t time)
{
    FILETIME stamp = {static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
    HANDLE file = CreateFileA(path, FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return syserr("CreateFile", "%s", path);
    errorblock *err = nullptr;
    if (!SetFileTime(file, nullptr, nullptr, &stamp)) err = syserr("SetFileTime", "%s", path);
    CloseHandle(file);
    return err;
}

errorblock *platformdelete(const char *path)
{
    return DeleteFileA(path) ? nullptr : syserr("DeleteFile", "%s", path);
}

errorblock *platformremovedir(const char *path)
{
    return RemoveDirectoryA(path) ? nullptr : syserr("Remove Directory", "%s", path);
}

errorblock *platformmakedir(const char *path)
{
    return CreateDirectoryA(path, nullptr) ? nullptr : syserr("Create Directory", "%s", path);
}

errorblock *platformrename(const char *from, const char *to)
{
    return MoveFileA(from, to) ? nullptr : syserr("MoveFile", "%s %s", from, to);
}

// A link is written through, since a move would take its place. To ask for no right at
// all opens a file that others have open.
bool platformtarget(const char *path, char *out)
{
    constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    DWORD attributes = GetFileAttributesA(path);
    strcopyn(out, path, PATHSIZE);
    if (attributes == INVALID_FILE_ATTRIBUTES) return true;
    if (attributes & FILE_ATTRIBUTE_REPARSE_POINT) return false;
    HANDLE file = CreateFileA(path, 0, shared, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return true;
    bool plain = GetFileType(file) == FILE_TYPE_DISK;
    CloseHandle(file);
    return plain;
}

errorblock *platformreplace(const char *from, const char *to)
{
    constexpr DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    return MoveFileExA(from, to, flags) ? nullptr : syserr("MoveFileEx", "%s %s", from, to);
}

errorblock *platformscanstart(const char *path, platforminfo *info, char *name, int32_t size,
                              filehandle *handle, bool *done)
{
    WIN32_FIND_DATAA data;
    HANDLE scan = FindFirstFileA(path, &data);
    *handle = 0;
    *done = scan == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_NOT_FOUND;
    if (*done) return nullptr;
    if (scan == INVALID_HANDLE_VALUE) return syserr("FindFirstFile", "%s", path);
    *handle = reinterpret_cast<filehandle>(scan);
    entryout(data, info, name, size);
    return nullptr;
}

errorblock *platformscannext(filehandle handle, platforminfo *info, char *name, int32_t size,
                             bool *done)
{
    WIN32_FIND_DATAA data;
    BOOL found = FindNextFileA(reinterpret_cast<HANDLE>(handle), &data);
    *done = !found && GetLastError() == ERROR_NO_MORE_FILES;
    if (*done) return nullptr;
    if (!found) return syserr("FindNextFile");
    entryout(data, info, name, size);
    return nullptr;
}

errorblock *platformscanend(filehandle handle)
{
    return FindClose(reinterpret_cast<HANDLE>(handle)) ? nullptr : syserr("FindClose");
}
