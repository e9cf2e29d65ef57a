// The control as one of Windows Forms: what aximp would write, as far as a form needs it.
using System;
using System.Runtime.InteropServices;
using System.Windows.Forms;

namespace VantikFrameTabSample
{
    // What a handler leaves in it counts.
    public class TabEventArgs : EventArgs
    {
        public short Index;
        public short Button; // 0 where there is none
    }

    public class AxVantikFrameTab : AxHost
    {
        ConnectionPointCookie cookie;

        public event EventHandler<TabEventArgs> TabDown, TabClose;
        public event EventHandler MenuDown;

        public AxVantikFrameTab() : base("d114c80b-464c-4291-9bc1-fb1295823c1e") { }

        // Once the control exists: after it was added to a form.
        public _VantikFrameTab Ocx { get; private set; }

        protected override void AttachInterfaces() { Ocx = (_VantikFrameTab)GetOcx(); }

        protected override void CreateSink()
        {
            cookie = new ConnectionPointCookie(GetOcx(), new Sink(this), typeof(__VantikFrameTab));
        }

        protected override void DetachSink() { if (cookie != null) cookie.Disconnect(); }

        void Raise(EventHandler<TabEventArgs> handlers, ref short index, short button)
        {
            var arguments = new TabEventArgs { Index = index, Button = button };
            if (handlers != null) handlers(this, arguments);
            index = arguments.Index;
        }

        [ClassInterface(ClassInterfaceType.None)]
        public class Sink : __VantikFrameTab
        {
            readonly AxVantikFrameTab tabs;

            public Sink(AxVantikFrameTab tabs) { this.tabs = tabs; }

            public void DownBarDown() { if (tabs.MenuDown != null) tabs.MenuDown(tabs, EventArgs.Empty); }
            public void PreTabDown(ref short firstPos) { }
            public void NextTabDown(ref short firstPos) { }
            public void TabMove(ref short index) { }
            public void TabDown(ref short index, ref short button) { tabs.Raise(tabs.TabDown, ref index, button); }
            public void TabClose(ref short index) { tabs.Raise(tabs.TabClose, ref index, 0); }
        }
    }
}
