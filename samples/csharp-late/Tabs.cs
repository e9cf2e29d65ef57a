// The tabs of a form as a console program keeps them, late bound: Tabs [go CAPTION | close CAPTION [yes]]
using System;
using System.IO;

static class Tabs
{
    const int PageCount = 40, LockedPage = 2;
    static readonly string Here = AppDomain.CurrentDomain.BaseDirectory;
    static readonly string LastTab = Path.Combine(Here, "last-tab.txt");
    static readonly dynamic tabs =
        Activator.CreateInstance(Type.GetTypeFromProgID("VantikFrameTabProject.VantikFrameTab", true));

    [STAThread]
    static void Main(string[] words)
    {
        UseSkin("light");
        AddPages();
        Choose(File.Exists(LastTab) ? File.ReadAllText(LastTab) : "Person");
        if (words.Length > 1 && words[0] == "go") Choose(words[1]);
        if (words.Length > 1 && words[0] == "close") Close(words[1], words.Length > 2);
        File.WriteAllText(LastTab, (string)tabs.GetTabCaption(tabs.ActiveTab));
        ShowMenu();
    }

    static void AddPages()
    {
        tabs.TabCount = PageCount;
        Name(0, "Person", "User");
        Name(1, "Notes", "Edit");
        Name(LockedPage, "Locked", "Lock");
        for (var tab = LockedPage + 1; tab < PageCount; ++tab) Name(tab, "Sheet " + (tab + 1), "Table");
        tabs.ActiveTab = 0;
        tabs.SetBarEnable(LockedPage, false); // not the active one, or none would be active
    }

    static void Name(int tab, string caption, string icon)
    {
        tabs.SetBarCaption(tab, caption);
        tabs.SetBarIco(tab, icon);
    }

    static int Find(string caption)
    {
        for (var tab = 0; tab < tabs.TabCount; ++tab)
            if (tabs.GetTabCaption(tab) == caption) return tab;
        return -1;
    }

    // The control ignores a disabled tab; its user is told.
    static void Choose(string caption)
    {
        var tab = Find(caption);
        if (tab < 0) Console.WriteLine("There is no page " + caption);
        else if (!tabs.GetTabEnable(tab)) Console.WriteLine("That page is locked");
        else tabs.ActiveTab = tab;
    }

    // The control would go to the first tab, whichever is closed.
    static void Close(string caption, bool confirmed)
    {
        int tab = Find(caption), active = tabs.ActiveTab;
        if (tab < 0) Console.WriteLine("There is no page " + caption);
        else if (!tabs.GetTabEnable(tab)) Console.WriteLine("That page stays");
        else if (!confirmed) Console.WriteLine("Close {0}? Then say: close \"{0}\" yes", caption);
        else
        {
            tabs.RemoveTab(tab);
            tabs.ActiveTab = active > tab ? active - 1 : active;
        }
    }

    static void ShowMenu()
    {
        Console.WriteLine("{0} pages, bars of {1} pixels", tabs.TabCount, tabs.BarWidth);
        for (var tab = 0; tab < tabs.TabCount; ++tab)
        {
            var mark = !tabs.GetTabEnable(tab) ? "x " : tab == tabs.ActiveTab ? "> " : "  ";
            Console.WriteLine("{0}{1} ({2})", mark, tabs.GetTabCaption(tab), tabs.GetTabIco(tab));
        }
    }

    // The folder Skins\NAME: its SKIN.INI, and the lines "Property = Value" of its SETTINGS.TXT.
    static void UseSkin(string name)
    {
        tabs.SkinPath = @"Skins\" + name;
        tabs.SkinFile = "SKIN.INI";
        foreach (var line in File.ReadAllLines(Path.Combine(Here, "Skins", name, "SETTINGS.TXT")))
        {
            var words = line.Split(new[] { " = " }, StringSplitOptions.None);
            if (words.Length == 2) Put(words[0], ToNumber(words[1]));
        }
    }

    static void Put(string property, int number)
    {
        ((object)tabs).GetType().InvokeMember(property, System.Reflection.BindingFlags.SetProperty, null, tabs,
                                              new object[] { number });
    }

    // #RRGGBB, True, the name of a constant (their places here are their values), or a number.
    static int ToNumber(string text)
    {
        var constant = Array.IndexOf(new[] { "AlignLeft", "AlignMiddle", "AlignRight" }, text);
        if (constant >= 0) return constant;
        if (text == "True" || text == "False") return text == "True" ? -1 : 0;
        if (text[0] != '#') return int.Parse(text);
        var rgb = Convert.ToInt32(text.Substring(1), 16);
        return (rgb & 0xFF) << 16 | rgb & 0xFF00 | rgb >> 16;
    }
}
