// The control's interfaces, written by hand: a program that has them needs neither aximp nor an assembly beside it.
using System.Runtime.InteropServices;

namespace VantikFrameTabSample
{
    public enum FontPos { AlignLeft, AlignMiddle, AlignRight }
    public enum dTabBarPos { TabLeft, TabMiddle, TabRight, TabCustom }
    public enum dTabPos { WindowLeft, WindowRight, Windowtop, WindowBottom }

    // In the order of the type library, which is that of the calls; bool and string are its flags and texts by themselves.
    [ComImport, Guid("1EE4391F-2F4F-49CD-85F6-1BE7FB5674FC"), InterfaceType(ComInterfaceType.InterfaceIsDual)]
    public interface _VantikFrameTab
    {
        short get_TabCount();
        void put_TabCount(short value);
        short get_ActiveTab();
        void put_ActiveTab(short value);
        void InsertTab(short afterIndex, ref string sCaption);
        void RemoveTab(short index);
        void SetBarIco(ref short index, ref string key);
        void SetBarCaption(ref short index, ref string caption, ref bool bRefresh);
        void SetBarEnable(ref short index, ref bool enable);
        string GetTabCaption(ref short index);
        bool GetTabEnable(ref short index);
        string GetTabIco(ref short index);
        [return: MarshalAs(UnmanagedType.IDispatch)] object get_Picture();
        void putref_Picture([MarshalAs(UnmanagedType.IDispatch)] object value);
        void put_Picture([MarshalAs(UnmanagedType.IDispatch)] object value);
        dTabBarPos get_TabBarPos();
        void put_TabBarPos(dTabBarPos value);
        dTabPos get_TabPos();
        void put_TabPos(dTabPos value);
        short get_BarWidth();
        void put_BarWidth(short value);
        short get_TabBarPosXJust();
        void put_TabBarPosXJust(short value);
        short get_TabBarPosYJust();
        void put_TabBarPosYJust(short value);
        int get_TabOffSet();
        void put_TabOffSet(int value);
        string get_DefaultCaption();
        void put_DefaultCaption(string value);
        [return: MarshalAs(UnmanagedType.IDispatch)] object get_Font();
        void putref_Font([MarshalAs(UnmanagedType.IDispatch)] object value);
        void put_Font([MarshalAs(UnmanagedType.IDispatch)] object value);
        FontPos get_CaptionPos();
        void put_CaptionPos(FontPos value);
        uint get_CaptionColor0();
        void put_CaptionColor0(uint value);
        uint get_CaptionColor1();
        void put_CaptionColor1(uint value);
        short get_CaptionXjust();
        void put_CaptionXjust(short value);
        short get_CaptionYjust();
        void put_CaptionYjust(short value);
        short get_IcoXjust();
        void put_IcoXjust(short value);
        short get_IcoYjust();
        void put_IcoYjust(short value);
        bool get_DelButton();
        void put_DelButton(bool value);
        short get_DelBtnXJust();
        void put_DelBtnXJust(short value);
        short get_DelBtnYJust();
        void put_DelBtnYJust(short value);
        short get_NavBtnYjust();
        void put_NavBtnYjust(short value);
        short get_NavBtnXjust();
        void put_NavBtnXjust(short value);
        string get_FixOcxList();
        void put_FixOcxList(string value);
        short get_TabToTab();
        void put_TabToTab(short value);
        bool get_TabBorder();
        void put_TabBorder(bool value);
        short get_FrameDist();
        void put_FrameDist(short value);
        string get_SkinFile();
        void put_SkinFile(string value);
        string get_SkinPath();
        void put_SkinPath(string value);
        void About();
        void zSubclass_Proc(bool bBefore, ref bool bHandled, ref int lReturn, ref int lng_hWnd, ref int uMsg, ref int wParam, ref int lParam);
    }

    [ComImport, Guid("DFDC6C0C-343A-459A-990A-A9A19B29F4B6"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface __VantikFrameTab
    {
        [DispId(1)] void DownBarDown();
        [DispId(2)] void PreTabDown(ref short firstPos);
        [DispId(3)] void NextTabDown(ref short firstPos);
        [DispId(4)] void TabMove(ref short index);
        [DispId(5)] void TabDown(ref short index, ref short button);
        [DispId(6)] void TabClose(ref short index);
    }
}
