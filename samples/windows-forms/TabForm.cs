// A form of forty pages. Windows Forms gives the control no children of its own, so the pages are panels over it.
using System;
using System.Collections.Generic;
using System.ComponentModel;
using System.Drawing;
using System.Windows.Forms;
using Microsoft.Win32;

namespace VantikFrameTabSample
{
    class TabForm : Form
    {
        const short PageCount = 40, LockedPage = 2;
        const string Key = @"HKEY_CURRENT_USER\Software\VantikFrameTab samples\Windows Forms";
        static readonly Color PageColour = Color.FromArgb(251, 251, 253); // what the skin paints there

        readonly AxVantikFrameTab tabs = new AxVantikFrameTab { Dock = DockStyle.Fill };
        readonly List<Panel> pages = new List<Panel>();
        readonly StatusStrip strip = new StatusStrip();
        readonly ToolStripStatusLabel status = new ToolStripStatusLabel("Ready");

        public TabForm()
        {
            Text = "Windows Forms";
            ClientSize = new Size(700, 340);
            strip.Items.Add(status);
            ((ISupportInitialize)tabs).BeginInit();
            Controls.Add(tabs);
            Controls.Add(strip);
            ((ISupportInitialize)tabs).EndInit(); // from here on the control exists
            tabs.TabDown += OnTabDown;
            tabs.TabClose += OnTabClose;
            tabs.MenuDown += OnMenu;
            AddPages();
            Select(Find((string)Registry.GetValue(Key, "LastTab", "Person")));
        }

        void AddPages()
        {
            Skin.Use(tabs.Ocx, "light"); // before there are tabs to show in another one
            tabs.Ocx.put_TabCount(PageCount);
            var person = AddPage("Person", "User");
            person.Controls.Add(new Label { Text = "&Name:", Location = new Point(15, 17), Width = 60 });
            person.Controls.Add(new TextBox { Location = new Point(85, 14), Width = 210 });
            var notes = AddPage("Notes", "Edit");
            notes.Controls.Add(new TextBox { Location = new Point(15, 14), Size = new Size(480, 180), Multiline = true });
            AddPage("Locked", "Lock");
            for (var tab = LockedPage + 1; tab < PageCount; ++tab)
            {
                var caption = "Sheet " + (tab + 1);
                AddPage(caption, "Table").Controls.Add(
                    new Label { Text = "This is " + caption + ".", Location = new Point(15, 17), AutoSize = true });
            }
            tabs.Ocx.put_ActiveTab(0);
            var disabled = false;
            var locked = LockedPage;
            tabs.Ocx.SetBarEnable(ref locked, ref disabled); // not the active one, or none would be active
        }

        Panel AddPage(string caption, string icon)
        {
            var tab = (short)pages.Count;
            var refresh = true;
            tabs.Ocx.SetBarCaption(ref tab, ref caption, ref refresh);
            tabs.Ocx.SetBarIco(ref tab, ref icon);
            var page = new Panel { Bounds = PagePlace(), Visible = false, BackColor = PageColour };
            page.Anchor = AnchorStyles.Left | AnchorStyles.Top | AnchorStyles.Right | AnchorStyles.Bottom;
            pages.Add(page);
            Controls.Add(page);
            page.BringToFront();
            return page;
        }

        // Inside the frame that the skin paints below its bars.
        Rectangle PagePlace() { return new Rectangle(6, 38, ClientSize.Width - 12, tabs.Bottom - 44); }

        string Caption(short tab) { return tabs.Ocx.GetTabCaption(ref tab); }

        bool IsEnabled(short tab) { return tabs.Ocx.GetTabEnable(ref tab); }

        short Find(string caption)
        {
            for (short tab = 0; tab < pages.Count; ++tab)
                if (Caption(tab) == caption && IsEnabled(tab)) return tab;
            return 0;
        }

        void Select(short tab)
        {
            tabs.Ocx.put_ActiveTab(tab);
            ShowPage(tab);
            if (Visible) ShowBar();
        }

        void ShowBar() { Row.BringIntoView(tabs.Handle, tabs.Ocx.get_ActiveTab(), pages.Count); }

        // What does not show takes no presses, so the row of a form that was just made does not scroll.
        protected override void OnShown(EventArgs e)
        {
            base.OnShown(e);
            ShowBar();
        }

        void ShowPage(short tab)
        {
            for (var i = 0; i < pages.Count; ++i) pages[i].Visible = i == tab;
            status.Text = Caption(tab) + " is open";
        }

        void OnTabDown(object sender, TabEventArgs e)
        {
            if (IsEnabled(e.Index))
            {
                ShowPage(e.Index);
                return;
            }
            status.Text = "That page is locked";
            e.Index = tabs.Ocx.get_ActiveTab();
        }

        // The control would go to the first tab, whichever is closed. So it keeps the tab, and the form takes it out.
        void OnTabClose(object sender, TabEventArgs e)
        {
            var closed = e.Index;
            e.Index = -1;
            if (!IsEnabled(closed) || pages.Count == 1)
            {
                status.Text = "That page stays";
                return;
            }
            var question = "Close \"" + Caption(closed) + "\"?";
            if (MessageBox.Show(this, question, Text, MessageBoxButtons.YesNo) != DialogResult.Yes) return;
            var active = tabs.Ocx.get_ActiveTab();
            tabs.Ocx.RemoveTab(closed);
            pages[closed].Dispose();
            pages.RemoveAt(closed);
            Select((short)Math.Min(active > closed ? active - 1 : active, pages.Count - 1));
        }

        void OnMenu(object sender, EventArgs e)
        {
            var menu = new ContextMenuStrip();
            for (short tab = 0; tab < pages.Count; ++tab)
            {
                var chosen = tab;
                var item = menu.Items.Add(Caption(tab), null, delegate { Select(chosen); });
                item.Enabled = IsEnabled(tab);
            }
            menu.Show(Cursor.Position);
        }

        protected override void OnFormClosing(FormClosingEventArgs e)
        {
            Registry.SetValue(Key, "LastTab", Caption(tabs.Ocx.get_ActiveTab()));
            base.OnFormClosing(e);
        }

        [STAThread]
        static void Main()
        {
            Application.EnableVisualStyles();
            Application.Run(new TabForm());
        }
    }
}
