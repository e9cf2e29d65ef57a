#include "MainWindow.h"

#include "FileDialogs.h"
#include "host/HostError.h"
#include "tools/skinview/model/PieceTexts.h"

#include <shellapi.h>

namespace vantik {

namespace {

constexpr SIZE UsualSize = {1240, 860}, LeastSize = {900, 640};
enum Id : int { BitmapId = 1000, PiecesId, FaultsId, OtherId };
enum Timer : UINT_PTR { WatchTimer = 1, FaultTimer, LightTimer };
constexpr UINT WatchPeriod = 400, FaultDelay = 200, LightDelay = 120;

constexpr UINT ResolutionChanged = 0x02E0; // WM_DPICHANGED, which older headers lack

constexpr std::array PreviewTitles = {L"Bars on top", L"On the bottom", L"On the left", L"On the right"};

// As much of the usual size as the screen has room for.
SIZE FirstSize(int dotsPerInch) {
    RECT screen = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    const auto fitting = [&](LONG usual, LONG room) {
        return std::min<LONG>(MulDiv(usual, dotsPerInch, 96), room - MulDiv(60, dotsPerInch, 96));
    };
    return {fitting(UsualSize.cx, screen.right - screen.left),
            fitting(UsualSize.cy, screen.bottom - screen.top)};
}

HWND MakeText(HWND parent, const wchar_t* text, const FormFont& font) {
    return MakeWidget(parent, L"STATIC", text, SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, {0, 0, 0, 0}, OtherId,
                      font);
}

RECT ToRect(Box box) noexcept { return {box.Left, box.Top, box.Left + box.Width, box.Top + box.Height}; }

// A text that is there already is not set again: it would flicker.
void SetText(HWND window, const std::wstring& text) {
    if (TextOf(window) != text) SetWindowTextW(window, text.c_str());
}

} // namespace

MainWindow::MainWindow(ControlModule& module)
    : module_(module),
      dotsPerInch_(ScreenResolution()),
      font_(std::make_unique<FormFont>(dotsPerInch_)),
      window_(
          std::make_unique<FormWindow>(L"skinview", FirstSize(dotsPerInch_),
                                       [this](UINT m, WPARAM w, LPARAM l) { return OnMessage(m, w, l); })),
      menu_(MakeMenu()),
      keys_(MakeKeys()) {
    SetMenu(window_->Handle(), menu_);
    window_->ResizeClient(FirstSize(dotsPerInch_));
    MakePanes();
    Arrange();
    ShowSkin();
    DragAcceptFiles(window_->Handle(), TRUE);
    SetTimer(window_->Handle(), WatchTimer, WatchPeriod, nullptr);
}

MainWindow::~MainWindow() {
    previews_.reset();
    bitmap_.reset();
    DestroyAcceleratorTable(keys_);
}

void MainWindow::MakePanes() {
    const HWND form = window_->Handle();
    bitmapHead_ = MakeText(form, L"Bitmap", *font_);
    bitmap_ = std::make_unique<BitmapPane>(
        form, BitmapId, *font_,
        PaneHandlers{[this](std::int32_t piece) {
                         pointed_ = piece;
                         ShowStatus();
                         LightLater();
                     },
                     [this](std::int32_t piece) { PieceChosen(piece); },
                     [this](std::int32_t piece, const EdgeNumbers& numbers, int gesture) {
                         PieceMoved(piece, numbers, gesture);
                     },
                     [this] { SetText(bitmapHead_, ZoomText()); }});
    piecesHead_ = MakeText(form, L"Rectangles: number, name, left, right, top, bottom, size", *font_);
    pieces_ = std::make_unique<TextList>(form, PiecesId, *font_);
    faultsHead_ = MakeText(form, L"Faults", *font_);
    faults_ = std::make_unique<TextList>(form, FaultsId, *font_);
    status_ = MakeText(form, L"", *font_);
    for (std::size_t i = 0; i < previewHeads_.size(); ++i)
        previewHeads_[i] = MakeText(form, PreviewTitles[i], *font_);
    previews_ = std::make_unique<Previews>(module_, form);
}

void MainWindow::Arrange() {
    const Layout layout = LayoutFor(window_->ClientSize(), dotsPerInch_);
    const auto scaled = [&](int length) { return MulDiv(length, dotsPerInch_, 96); };
    MoveWidget(bitmapHead_, layout.BitmapHead);
    bitmap_->MoveTo(layout.Bitmap);
    MoveWidget(piecesHead_, layout.PiecesHead);
    MoveWidget(pieces_->Window(), layout.Pieces);
    pieces_->SetColumns({scaled(28), scaled(130), scaled(170), scaled(210), scaled(250), scaled(300)});
    MoveWidget(faultsHead_, layout.FaultsHead);
    MoveWidget(faults_->Window(), layout.Faults);
    faults_->SetColumns({scaled(64), scaled(190)});
    MoveWidget(status_, layout.Status);
    Previews::Places places = {};
    for (std::size_t i = 0; i < places.size(); ++i) {
        MoveWidget(previewHeads_[i], layout.PreviewHeads[i]);
        places[i] = ToRect(layout.Previews[i]);
    }
    previews_->MoveTo(places);
}

int MainWindow::Run() {
    window_->Show();
    SetFocus(bitmap_->Window());
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (TranslateAcceleratorW(window_->Handle(), keys_, &message)) continue;
        if (previews_->TranslateMessage(message)) continue;
        if (IsDialogMessageW(window_->Handle(), &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

std::optional<LRESULT> MainWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!previews_) return std::nullopt; // not complete yet
    switch (message) {
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED) Arrange();
        return 0;
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {MulDiv(LeastSize.cx, dotsPerInch_, 96),
                                                                 MulDiv(LeastSize.cy, dotsPerInch_, 96)};
        return 0;
    case ResolutionChanged: OnResolution(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam)); return 0;
    case WM_COMMAND: OnCommand(wParam); return 0;
    case WM_INITMENU: EnableCommands(); return 0;
    case WM_TIMER: OnTimer(wParam); return 0;
    case WM_DROPFILES: OnDrop(reinterpret_cast<HANDLE>(wParam)); return 0;
    case WM_CLOSE: Close(); return 0;
    case WM_QUERYENDSESSION: return MayLose() ? TRUE : FALSE;
    default: return std::nullopt;
    }
}

void MainWindow::OnResolution(int dotsPerInch, const RECT& place) {
    dotsPerInch_ = dotsPerInch;
    auto old = std::exchange(font_, std::make_unique<FormFont>(dotsPerInch));
    for (const HWND text :
         {bitmapHead_, piecesHead_, faultsHead_, status_, previewHeads_[0], previewHeads_[1],
          previewHeads_[2], previewHeads_[3], pieces_->Window(), faults_->Window()})
        SendMessageW(text, WM_SETFONT, reinterpret_cast<WPARAM>(font_->Get()), TRUE);
    bitmap_->SetFont(*font_);
    window_->MoveTo(place);
    Arrange();
}

void MainWindow::OnTimer(WPARAM timer) {
    if (timer != WatchTimer) KillTimer(window_->Handle(), timer);
    if (timer == WatchTimer && !asking_ && session_.FilesChanged()) Carry(ReloadCommand);
    if (timer == FaultTimer) ShowFaults();
    if (timer == LightTimer && PieceToLight() != lit_) ShowControls();
}

void MainWindow::OnDrop(HANDLE drop) {
    const auto files = static_cast<HDROP>(drop);
    std::wstring path(DragQueryFileW(files, 0, nullptr, 0) + 1, L'\0');
    path.resize(DragQueryFileW(files, 0, path.data(), static_cast<UINT>(path.size())));
    DragFinish(files);
    if (MayLose()) Open(path);
}

// --- what is shown

void MainWindow::ShowSkin() {
    ShowBitmap();
    ShowPieces();
    ShowControls();
    ShowFaults();
}

void MainWindow::ShowBitmap() {
    bitmap_->Show(session_.Bitmap());
    SetText(bitmapHead_, ZoomText());
}

std::wstring MainWindow::ZoomText() const {
    if (session_.Bitmap().IsEmpty()) return L"Bitmap";
    return L"Bitmap, " + std::to_wstring(session_.Bitmap().Width()) + L" x " +
           std::to_wstring(session_.Bitmap().Height()) + L" pixels, enlarged " +
           std::to_wstring(bitmap_->Zoom()) + L" times";
}

void MainWindow::ShowPieces() {
    bitmap_->Show(session_.Pieces());
    std::vector<std::wstring> lines;
    for (const Piece& piece : session_.Pieces()) lines.push_back(FromUtf8(RowOf(piece)));
    pieces_->Show(lines);
    Choose(FindPiece(session_.Pieces(), chosen_) ? chosen_ : NoPiece);
    ShowTitle();
    ShowStatus();
}

void MainWindow::ShowTitle() {
    std::wstring title = L"skinview";
    if (session_.IsOpen())
        title = (session_.Definition().IsChanged() ? L"*" : L"") + session_.Name() + L" - " + title;
    SetText(window_->Handle(), title);
}

void MainWindow::ShowStatus() {
    const std::int32_t shown = pointed_ != NoPiece ? pointed_ : chosen_;
    const Piece* piece = FindPiece(session_.Pieces(), shown);
    if (!session_.IsOpen())
        return SetText(status_, L"Open a skin's definition, drop one here, or begin a new skin (Ctrl+N)");
    if (!piece)
        return SetText(status_,
                       L"Point at a rectangle: its piece lights up in the controls. Drag an edge to move it; "
                       L"F1 tells the keys");
    SetText(status_, FromUtf8(TitleOf(shown) + ": " + PurposeOf(shown) + " (line " +
                              std::to_string(piece->Line) + ": " + PlaceOf(*piece) + ")"));
}

// The piece pointed at or else, until it is moved, the chosen one.
std::int32_t MainWindow::PieceToLight() const {
    if (pointed_ != NoPiece) return pointed_;
    return chosenIsLit_ ? chosen_ : NoPiece;
}

void MainWindow::LightLater() { SetTimer(window_->Handle(), LightTimer, LightDelay, nullptr); }

// What the controls refuse leaves them as they were.
void MainWindow::ShowControls() {
    refusal_.clear();
    if (!session_.IsOpen()) return previews_->Clear();
    lit_ = PieceToLight();
    try {
        const auto lit = session_.ForControlsWithLit(lit_);
        previews_->Show(lit ? *lit : session_.ForControls());
    } catch (const std::exception& error) {
        refusal_ = std::string("the controls refuse the skin: ") + error.what();
    }
}

void MainWindow::ShowFaults() {
    std::vector<std::wstring> lines;
    found_ = session_.IsOpen() ? session_.Faults() : std::vector<Fault>();
    for (const Fault& fault : found_) lines.push_back(FromUtf8(RowOf(fault)));
    for (const std::string& other : {session_.SettingsFault(), HasErrors(found_) ? std::string() : refusal_})
        if (!other.empty()) lines.push_back(L"error\t\t" + FromUtf8(other));
    const std::wstring count = lines.empty() ? L"none" : std::to_wstring(lines.size());
    const bool isOld = !refusal_.empty();
    SetText(faultsHead_,
            L"Faults: " + count + (isOld ? L" - the controls show the last skin without errors" : L""));
    faults_->Show(lines);
}

// --- what panes report

void MainWindow::Choose(std::int32_t piece) {
    chosen_ = piece;
    bitmap_->Choose(piece);
    const auto& pieces = session_.Pieces();
    const Piece* found = FindPiece(pieces, piece);
    pieces_->Choose(found ? static_cast<int>(found - pieces.data()) : -1);
}

void MainWindow::PieceChosen(std::int32_t piece) {
    Choose(piece);
    chosenIsLit_ = true;
    ShowStatus();
    LightLater();
}

// What moves is not lit: its own colours show whether it is right.
void MainWindow::PieceMoved(std::int32_t piece, const EdgeNumbers& numbers, int gesture) {
    Document& document = session_.Definition();
    document.Change(WithNumbers(document.Text(), piece, numbers), gesture);
    session_.ReadPieces();
    chosenIsLit_ = false;
    pointed_ = NoPiece;
    ShowPieces();
    ShowControls();
    SetTimer(window_->Handle(), FaultTimer, FaultDelay, nullptr);
}

void MainWindow::ChooseFromList() {
    const int line = pieces_->Chosen();
    if (line >= 0 && line < std::ssize(session_.Pieces()))
        PieceChosen(session_.Pieces()[static_cast<std::size_t>(line)].Index);
}

void MainWindow::ChooseFault() {
    const int line = faults_->Chosen();
    if (line < 0 || line >= std::ssize(found_)) return;
    const Fault& fault = found_[static_cast<std::size_t>(line)];
    for (const Piece& piece : session_.Pieces())
        if (piece.Line == fault.Line) PieceChosen(piece.Index);
    SetText(status_, FromUtf8(fault.Effect.empty() ? fault.What : fault.Effect));
}

void MainWindow::TakeChangedFiles() {
    if (const auto text = session_.ForeignText()) {
        if (!session_.Definition().IsChanged() ||
            Ask([&] { return AskToTakeFromDisk(window_->Handle(), session_.Name()); }))
            session_.Definition().TakeFromDisk(*text);
    }
    session_.ReadFiles();
    ShowSkin();
}

} // namespace vantik
