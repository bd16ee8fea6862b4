#pragma once

/// The receipt printer library's interface, as far as the terminal relies on it. Texts are bytes in the local
/// 8-bit encoding. Of the results only that of POS_Open is looked at.

#ifdef _WIN32
#define POS_CALL __stdcall
#else
#define POS_CALL
#endif

extern "C" {
using PosHandle = void*;
/// kind is one of PosPort; the four numbers between are for serial ports.
using PosOpen = PosHandle(POS_CALL*)(const char* name, unsigned, unsigned, unsigned, unsigned, unsigned kind);
using PosPlain = int(POS_CALL*)();
using PosSetMode = int(POS_CALL*)(unsigned mode);
/// width and height are factors, x the distance from the left edge in dots.
using PosTextOut = int(POS_CALL*)(const char* text, unsigned x, unsigned width, unsigned height, unsigned font,
                                  unsigned style);
using PosCutPaper = int(POS_CALL*)(unsigned mode, unsigned distance);
}

/// What the name given to POS_Open is.
enum PosPort : unsigned { PosPrinterName = 0x14, PosNetworkAddress = 0x15 };

/// What POS_Open answers when there is no such printer.
inline PosHandle posOpenFailed() { return reinterpret_cast<PosHandle>(-1); }

/// Why our own library couldn't print last, which its further entry point KV_LastFault tells. The vendor's has
/// none.
enum PosFault : int { PosNoFault, PosNoPrinter, PosOutOfReach, PosRefused, PosTimedOut };

/// The library's entry points in the order in which they are resolved: CALLED(name, type) for those that the
/// terminal calls, UNUSED(name) for those that only have to be there.
#define POS_ENTRY_POINTS(CALLED, UNUSED)                                                                       \
    CALLED(POS_Open, PosOpen)                                                                                  \
    UNUSED(POS_EnumUSBPrinter)                                                                                 \
    UNUSED(POS_Raster_DownloadAndPrintBmp)                                                                     \
    UNUSED(POS_Raster_DownloadAndPrintBmpEx)                                                                   \
    UNUSED(POS_SetPrintDensity)                                                                                \
    CALLED(POS_Close, PosPlain)                                                                                \
    CALLED(POS_Reset, PosPlain)                                                                                \
    CALLED(POS_SetMode, PosSetMode)                                                                            \
    UNUSED(POS_SetMotionUnit)                                                                                  \
    UNUSED(POS_SetCharSetAndCodePage)                                                                          \
    CALLED(POS_FeedLine, PosPlain)                                                                             \
    UNUSED(POS_SetLineSpacing)                                                                                 \
    UNUSED(POS_SetRightSpacing)                                                                                \
    UNUSED(POS_PreDownloadBmpToRAM)                                                                            \
    UNUSED(POS_PreDownloadBmpsToFlash)                                                                         \
    UNUSED(POS_QueryStatus)                                                                                    \
    UNUSED(POS_RTQueryStatus)                                                                                  \
    UNUSED(POS_NETQueryStatus)                                                                                 \
    UNUSED(POS_KickOutDrawer)                                                                                  \
    CALLED(POS_CutPaper, PosCutPaper)                                                                          \
    CALLED(POS_StartDoc, PosPlain)                                                                             \
    CALLED(POS_EndDoc, PosPlain)                                                                               \
    UNUSED(POS_EndSaveFile)                                                                                    \
    UNUSED(POS_BeginSaveFile)                                                                                  \
    UNUSED(POS_S_SetAreaWidth)                                                                                 \
    CALLED(POS_S_TextOut, PosTextOut)                                                                          \
    UNUSED(POS_S_DownloadAndPrintBmp)                                                                          \
    UNUSED(POS_S_PrintBmpInRAM)                                                                                \
    UNUSED(POS_S_PrintBmpInFlash)                                                                              \
    UNUSED(POS_S_SetBarcode)                                                                                   \
    UNUSED(POS_PL_SetArea)                                                                                     \
    UNUSED(POS_PL_TextOut)                                                                                     \
    UNUSED(POS_PL_DownloadAndPrintBmp)                                                                         \
    UNUSED(POS_PL_PrintBmpInRAM)                                                                               \
    UNUSED(POS_PL_SetBarcode)                                                                                  \
    UNUSED(POS_PL_Print)                                                                                       \
    UNUSED(POS_PL_Clear)                                                                                       \
    UNUSED(POS_WriteFile)                                                                                      \
    UNUSED(POS_ReadFile)                                                                                       \
    UNUSED(POS_SetHandle)                                                                                      \
    UNUSED(POS_GetVersionInfo)
