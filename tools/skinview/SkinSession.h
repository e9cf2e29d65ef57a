// The skin that is open: its text and its files, what is wrong in it, and how the controls get it.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "FileWatch.h"
#include "Preview.h"
#include "WorkingSkin.h"
#include "check/Fault.h"
#include "tools/skinview/model/Document.h"
#include "tools/skinview/model/PixelImage.h"

namespace vantik {

class SkinSession {
public:
    // HostError when the file cannot be read; then what was open stays open.
    void Open(const std::filesystem::path& path);
    bool IsOpen() const noexcept { return !path_.empty(); }
    const std::filesystem::path& Path() const noexcept { return path_; }
    std::wstring Name() const { return path_.filename().wstring(); }

    void Save(); // HostError when it cannot be written

    Document& Definition() noexcept { return document_; }
    const Document& Definition() const noexcept { return document_; }
    const PixelImage& Bitmap() const noexcept { return bitmap_; } // the last one that could be read
    const std::vector<Piece>& Pieces() const noexcept { return pieces_; }

    // To be called after every change of the text, and of the files.
    void ReadPieces() { pieces_ = PiecesOf(document_.Text()); }
    void ReadFiles();

    bool FilesChanged() { return IsOpen() && watch_.Changed(); }
    // The definition as it is on disk where that is neither what was saved last nor what is in the editor.
    std::optional<std::string> ForeignText() const;

    std::vector<Fault> Faults() const;
    std::string SettingsFault() const { return settingsFault_; } // empty without one

    PreviewSkin ForControls();
    std::optional<PreviewSkin> ForControlsWithLit(std::int32_t piece);

private:
    void ReadBitmap();
    void ReadSettings();
    PreviewSkin Named(std::wstring file) const;

    std::filesystem::path path_;
    Document document_;
    PixelImage bitmap_;
    std::vector<Piece> pieces_;
    std::vector<SkinSetting> lying_, standing_;
    std::string settingsFault_;
    FileWatch watch_;
    WorkingSkin working_;
};

} // namespace vantik
