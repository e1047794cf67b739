// What the headers of Windows CE declare and those of a PC do not, for the compiler of a PC that checks what is written
// for Windows CE.
#pragma once

#include <winsock2.h>

#include <windows.h>

extern "C" {
__declspec(dllimport) BOOL WINAPI EventModify(HANDLE event, DWORD change);
__declspec(dllimport) BOOL WINAPI DeleteAndRenameFile(LPCWSTR replaced, LPCWSTR by);
__declspec(dllimport) BOOL WINAPI
    KernelIoControl(DWORD code, LPVOID input, DWORD inputSize, LPVOID output, DWORD outputSize, LPDWORD returned);
__declspec(dllimport) void WINAPIV NKDbgPrintfW(LPCWSTR format, ...);
}

// Of the entry point's two names, the plain one has the wide command line.
#define WinMain CeWinMain
