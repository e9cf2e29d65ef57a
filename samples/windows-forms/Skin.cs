// A skin that lies beside the program, with the property values that go with it.
using System;
using System.Drawing;
using System.IO;
using System.Windows.Forms;

namespace VantikFrameTabSample
{
    static class Skin
    {
        // The folder Skins\NAME: its SKIN.INI, and the lines "Property = Value" of its SETTINGS.TXT.
        public static void Use(_VantikFrameTab tabs, string name)
        {
            tabs.put_SkinPath(@"Skins\" + name);
            tabs.put_SkinFile("SKIN.INI");
            var folder = Path.Combine(Application.StartupPath, "Skins", name);
            foreach (var line in File.ReadAllLines(Path.Combine(folder, "SETTINGS.TXT")))
            {
                var words = line.Split(new[] { " = " }, StringSplitOptions.None);
                if (words.Length == 2) Put(tabs, words[0], words[1]);
            }
        }

        static void Put(_VantikFrameTab tabs, string property, string text)
        {
            switch (property)
            {
                case "BarWidth": tabs.put_BarWidth(short.Parse(text)); break;
                case "TabToTab": tabs.put_TabToTab(short.Parse(text)); break;
                case "TabBorder": tabs.put_TabBorder(bool.Parse(text)); break;
                case "CaptionPos": tabs.put_CaptionPos((FontPos)Enum.Parse(typeof(FontPos), text)); break;
                case "CaptionXjust": tabs.put_CaptionXjust(short.Parse(text)); break;
                case "CaptionYjust": tabs.put_CaptionYjust(short.Parse(text)); break;
                case "CaptionColor0": tabs.put_CaptionColor0(ToColour(text)); break;
                case "CaptionColor1": tabs.put_CaptionColor1(ToColour(text)); break;
                case "IcoXjust": tabs.put_IcoXjust(short.Parse(text)); break;
                case "IcoYjust": tabs.put_IcoYjust(short.Parse(text)); break;
            }
        }

        static uint ToColour(string text)
        {
            return (uint)ColorTranslator.ToOle(ColorTranslator.FromHtml(text));
        }
    }
}
