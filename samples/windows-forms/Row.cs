// The row of bars as screen readers find it: the control scrolls for nobody, but its buttons can be pressed for it.
using System;
using System.Runtime.InteropServices;
using Accessibility;

namespace VantikFrameTabSample
{
    static class Row
    {
        const uint OfControl = 0xFFFFFFFC; // OBJID_CLIENT
        const int Unavailable = 1, Offscreen = 0x10000;

        [DllImport("oleacc.dll", PreserveSig = false)]
        static extern void AccessibleObjectFromWindow(IntPtr window, uint id, ref Guid face,
            [MarshalAs(UnmanagedType.Interface)] out IAccessible row);

        static bool Has(IAccessible row, int child, int state)
        {
            return ((int)row.get_accState(child) & state) != 0;
        }

        // Its children are the tabs, then the buttons back, forth and menu, all counted from 1.
        public static void BringIntoView(IntPtr control, int tab, int tabCount)
        {
            IAccessible row;
            var face = typeof(IAccessible).GUID;
            AccessibleObjectFromWindow(control, OfControl, ref face, out row);
            var first = 0;
            while (Has(row, first + 1, Offscreen)) ++first;
            var button = tabCount + (tab < first ? 1 : 2);
            while (Has(row, tab + 1, Offscreen) && !Has(row, button, Unavailable)) row.accDoDefaultAction(button);
        }
    }
}
