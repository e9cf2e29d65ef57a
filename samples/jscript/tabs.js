// The tabs of a form as a script keeps them, without a window: cscript //nologo tabs.js [go CAPTION | close CAPTION [yes]]
var pageCount = 40, lockedPage = 2;
var files = new ActiveXObject("Scripting.FileSystemObject");
var here = files.GetParentFolderName(WScript.ScriptFullName);
var tabs = new ActiveXObject("VantikFrameTabProject.VantikFrameTab");

useSkin("light");
addPages();
choose(lastTab());
work();
remember(tabs.GetTabCaption(tabs.ActiveTab));
showMenu();

function addPages() {
    tabs.TabCount = pageCount;
    name(0, "Person", "User");
    name(1, "Notes", "Edit");
    name(lockedPage, "Locked", "Lock");
    for (var tab = lockedPage + 1; tab < pageCount; ++tab)
        name(tab, "Sheet " + (tab + 1), "Table");
    tabs.ActiveTab = 0;
    tabs.SetBarEnable(lockedPage, false); // not the active one, or none would be active
}

function name(tab, caption, icon) {
    tabs.SetBarCaption(tab, caption);
    tabs.SetBarIco(tab, icon);
}

// What the command line wants.
function work() {
    var words = WScript.Arguments;
    if (words.length < 2) return;
    if (words(0) == "go") choose(words(1));
    if (words(0) == "close") closeTab(words(1), words.length > 2);
}

function find(caption) {
    for (var tab = 0; tab < tabs.TabCount; ++tab)
        if (tabs.GetTabCaption(tab) == caption) return tab;
    return -1;
}

// The control ignores a disabled tab; its user is told.
function choose(caption) {
    var tab = find(caption);
    if (tab < 0) WScript.Echo("There is no page " + caption);
    else if (!tabs.GetTabEnable(tab)) WScript.Echo("That page is locked");
    else tabs.ActiveTab = tab;
}

// The control would go to the first tab, whichever is closed.
function closeTab(caption, confirmed) {
    var tab = find(caption), active = tabs.ActiveTab;
    if (tab < 0) return WScript.Echo("There is no page " + caption);
    if (!tabs.GetTabEnable(tab)) return WScript.Echo("That page stays");
    if (!confirmed) return WScript.Echo("Close " + caption + "? Then say: close \"" + caption + "\" yes");
    tabs.RemoveTab(tab);
    tabs.ActiveTab = active > tab ? active - 1 : active;
}

function showMenu() {
    WScript.Echo(tabs.TabCount + " pages, bars of " + tabs.BarWidth + " pixels");
    for (var tab = 0; tab < tabs.TabCount; ++tab) {
        var mark = !tabs.GetTabEnable(tab) ? "x " : tab == tabs.ActiveTab ? "> " : "  ";
        WScript.Echo(mark + tabs.GetTabCaption(tab) + " (" + tabs.GetTabIco(tab) + ")");
    }
}

function lastTab() {
    var file = here + "\\last-tab.txt";
    return files.FileExists(file) ? files.OpenTextFile(file).ReadLine() : "Person";
}

function remember(caption) {
    var file = files.CreateTextFile(here + "\\last-tab.txt", true);
    file.WriteLine(caption);
    file.Close();
}

// Skins\NAME beside the script, on the drive of the program that runs it: the control looks from that program's folder.
function useSkin(skin) {
    var folder = here + "\\Skins\\" + skin;
    if (!files.FileExists(folder + "\\SKIN.INI")) return;
    tabs.SkinPath = wayToRoot(WScript.Path) + folder.substr(3);
    tabs.SkinFile = "SKIN.INI";
    var settings = files.OpenTextFile(folder + "\\SETTINGS.TXT");
    while (!settings.AtEndOfStream) {
        var words = settings.ReadLine().split(" = ");
        if (words.length == 2) tabs[words[0]] = toValue(words[1]);
    }
    settings.Close();
}

// From a folder of the drive to its root: one step for each folder.
function wayToRoot(folder) {
    var way = "", parts = folder.substr(3).split("\\");
    for (var i = 0; i < parts.length; ++i)
        if (parts[i] != "") way += "..\\";
    return way;
}

// #RRGGBB, True, the name of a constant, or a number.
function toValue(text) {
    var constants = { "False": 0, "True": -1, "AlignLeft": 0, "AlignMiddle": 1, "AlignRight": 2 };
    if (text in constants) return constants[text];
    if (text.charAt(0) != "#") return parseInt(text, 10);
    var rgb = parseInt(text.substr(1), 16);
    return (rgb & 0xFF) << 16 | rgb & 0xFF00 | rgb >> 16;
}
