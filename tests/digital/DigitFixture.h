#pragma once
// Digital documents from text, read back as text, gestures and commands as letters, and a scripted
// host that notes every message, dialog and menu.
#include "digital/DigitClipFuncBox.h"
#include "digital/DigitDocumentFuncBox.h"
#include "digital/DigitEditFuncBox.h"
#include "digital/DigitFindFuncBox.h"
#include "digital/DigitFuncCode.h"
#include "digital/DigitMouseFuncBox.h"
#include "digital/DigitNodeFuncBox.h"
#include "digital/DigitView.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "digital/InsertNodeFuncBox.h"
#include "frame/LoadLanguageCode.h"
#include "platform/Host.h"
#include "TextRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sstream>

class DigitFixture : public ::testing::Test {
protected:
    void SetUp() override {
        const auto note = [this](auto text, auto...) { asked.emplace_back(text); };
        TheHost().ShowBox = [=, this](auto text, auto...) { return note(text), answer; };
        TheHost().RunDialog = [=, this](auto window, auto...) { return note(window), dialog(); };
        TheHost().PopupMenu = note;
        DigitDocTable = {};
        DigitDocUsed.fill(false);
        DigitDocCount = AnalogDocCount = ActiveDigitIndex = 0;
        EditDigitProperty = PropertyApplied = AssembleMode = EditNodeMode = false;
        SpanClipValid = RowClipValid = false;
        LastInserted = {};
        ActiveIsDigital = true;
        UseEnglish = 1;
    }
    void TearDown() override { TheHost() = silent; }

    /// Calls `check` with both sides of each row of a table "left => right; left => right".
    template <typename Check>
    static void ForRows(const std::string& table, const Check& check) {
        for (const auto& [left, right] : Rows(table)) {
            SCOPED_TRACE(left);
            check(left, right);
        }
    }

    /// The open and active document of slot 0 with nodes such as "clk d[4]*%1@3": name, width, "*"
    /// for an open bus, radix, start number. `samples` has a text of bits for each channel in list
    /// order, "-" for none. The picture shows ten dots and ten rows.
    static DigitDocument& MakeDocument(const std::string& nodes, const std::string& samples = "",
                                       std::int32_t dots = 64) {
        static const std::regex form(R"((\w+)(?:\[(\d+)\])?(\*?)(?:%(\d))?(?:@(\d+))?)");
        DigitDocument& document = DigitAt(0) = DigitDocument();
        DigitDocUsed[0] = true;
        DigitDocCount = 1;
        document.Dots = dots;
        document.PictureWidth = 600;
        document.PictureHeight = 300;
        ResetDigitDocument(document);
        std::istringstream patterns(samples);
        std::string bits;
        for (std::sregex_iterator at(nodes.begin(), nodes.end(), form), end; at != end; ++at) {
            const auto number = [&](int part, int otherwise) {
                return std::int16_t((*at)[part].matched ? std::stoi((*at)[part]) : otherwise);
            };
            AppendNode(document, {(*at)[1], number(4, 0), number(2, 1), number(5, 0)});
            const auto index = std::int16_t(document.NodeCount - 1);
            document.Nodes[index].Expanded = (*at)[3].length() > 0;
            for (int k = 0; k < number(2, 1) && patterns >> bits; ++k)
                for (std::int32_t i = 0; i < std::ssize(bits) && bits != "-"; ++i) {
                    ExtendSamples(document, index, i);
                    if (bits[i] == '1')
                        document.DigitSamples[i] |= 1 << document.Nodes[index].Channels[k];
                }
        }
        RenumberRows(document);
        RefreshValues(document);
        return document;
    }

    /// One event at (x, y), or with x.
    static void Do(char event, float x = 0, float y = 0) {
        constexpr auto left = MouseButton::Left, right = MouseButton::Right;
        DigitDocument& document = DigitAt(0);
        const auto number = std::int32_t(x), height = std::int32_t(y);
        const auto add = ListAdd(std::string_view("LCSsBt").find(event) % 3);
        // clang-format off
        switch (event) {
            case 'P': case 'r': return DigitWavePic_MouseDown(0, event == 'P' ? left : right, x, y);
            case 'M': return DigitWavePic_MouseMove(0, left, x, y);
            case 'R': return DigitWavePic_MouseUp(0, left, x, y);
            case 'D': return DigitWavePic_DblClick(0, x, y);
            case 'p': return DigitBackWavePic_MouseDown(0, left, x, y);
            case 'm': return DigitBackWavePic_MouseMove(0, x);
            case 'l': return DigitBackWavePic_MouseUp(0, x);
            case 'L': case 'C': case 'S': return DispParaListView_MouseDown(0, left, x, y, add);
            case 'B': return DispParaListView_MouseDown(0, right, x, y, add);
            case 'd': return DispParaListView_DblClick(0, x, y);
            case 's': case 't': return StepListRow(0, number, add);
            case '+': case '-': return ExpandClickedRow(0, event == '+');
            case 'z': return ZoomDigit(0, number);    case 'o': return ZoomOutDigit();
            case 'c': return PutCaliper(0, number);   case '1': return ZoomOffDigit();
            case 'f': return ShowDotsFrom(0, number); case 'a': return SelectAllDigit();
            case 'w': return ShowRowsFrom(0, number); case 'E': return SelectEntireDigit();
            case 'N': return NextPage(0);             case 'F': return FrontPage(0);
            case 'x': return ExpandAllBuses();        case 'X': return CollapseAllBuses();
            case 'u': return UndoDigit();             case 'U': return ResumeDigit();
            case 'y': return CopyDigit();             case 'k': return CutDigit();
            case 'v': return PasteDigit();            case 'V': return RepasteDigit();
            case 'K': return DeleteDigit();           case 'b': return SplitBuses();
            case 'g': return SortNodes();             case 'G': return SortNodesDescending();
            case 'A': return AssembleBus();           case 'T': return EditNodeOfRow();
            case 'I': TheHost().RunDialog("InsertNodeFrm", 0); return;
            case 'q': return TogglePointEdit();       case 'Q': return ToggleFind();
            case 'O': return ConfirmFind();
            case 'h': return DispParaListView_MouseMove(0, x);
            case 'H': return DispParaListView_MouseUp(0);
            case '2': std::swap(DigitAt(0), DigitAt(1)); return;
            case 'e': return EscapeDigit(0);          case 'n': MakeDocument("", "", number); return;
            case 'W': return LayoutDigitSurfaces(document, {90, std::max(number, 1), height}, 1.0);
            case 'i':
                if (document.ChannelCount + number > 15 || number < 0) return;
                BeginEdit(document);
                AppendNode(document, {"n", 0, std::int16_t(number + 1)});
                return EndDigitEdit(0);
        }
        // clang-format on
    }
    /// Events with blanks between: "P10,50 R90,50 a".
    static void Play(const std::string& script) {
        std::istringstream events(script);
        for (std::string event; events >> event;) {
            float x = 0, y = 0;
            std::sscanf(event.c_str() + 1, "%f,%f", &x, &y);
            Do(event[0], x, y);
        }
    }

    /// All that undo brings back but the values at the caliper: each node as MakeDocument reads it,
    /// and "channel=bits" of its members up to its length.
    static std::string Shown(const DigitDocument& document) {
        std::ostringstream text;
        for (const DigitNode& node : document.Nodes) {
            text << (text.tellp() > 0 ? " " : "") << node.Name << (node.Expanded ? "*" : "");
            if (node.Radix > 0) text << '%' << node.Radix;
            if (node.StartNumber > 0) text << '@' << node.StartNumber;
            for (int k = 0; k < node.Width; ++k) {
                text << (k > 0 ? ',' : ':') << int(node.Channels[k]) << '=';
                for (std::int32_t dot = 0; dot < node.DataLength; ++dot)
                    text << (WordAt(document, dot) >> node.Channels[k] & 1);
            }
        }
        return text.str();
    }

    /// The target "d" or, of a member, "d.1", as a span behind it "d.1:0-3" may tell.
    static DigitTarget TargetOf(const DigitDocument& document, const std::string& text) {
        const auto node = std::ranges::find(document.Nodes, text.substr(0, 1), &DigitNode::Name);
        const int member = text[1] == '.' ? text[2] - '0' : -1;
        return {std::int16_t(node - document.Nodes.begin()), std::int16_t(member)};
    }
    /// Sets spans "a:2-5 d.1:0-3" as the mouse leaves them, those of closed buses too.
    static void Select(DigitDocument& document, const std::string& spans) {
        std::istringstream list(spans);
        for (std::string span; list >> span;
             document.WaveSelection = document.ValueEnabled = true) {
            const auto [index, k] = TargetOf(document, span);
            DigitNode& node = document.Nodes[index];
            (k < 0 ? node.WaveSelected : node.MemberWaveSelected[k]) = true;
            std::sscanf(span.c_str() + span.find(':'), ":%d-%d",
                        k < 0 ? &node.SelectStart : &node.MemberSelectStart[k],
                        k < 0 ? &node.SelectEnd : &node.MemberSelectEnd[k]);
        }
    }
    /// "none", or where the selection was made and its spans; "+" marks a row of the list.
    static std::string Selection(const DigitDocument& document) {
        std::ostringstream text;
        text << (document.WaveSelection ? "wave" : document.ListSelection ? "list" : "none");
        const auto add = [&](const std::string& name, Flag wave, Flag list, int start, int end) {
            if (wave || list) text << ' ' << name << (list ? "+:" : ":") << start << '-' << end;
        };
        for (const DigitNode& n : document.Nodes) {
            add(n.Name, n.WaveSelected, n.ListSelected, n.SelectStart, n.SelectEnd);
            for (std::size_t k = 0; k < MemberSlots; ++k)
                add(n.Name + '.' + std::to_string(k), n.MemberWaveSelected[k],
                    n.MemberListSelected[k], n.MemberSelectStart[k], n.MemberSelectEnd[k]);
        }
        return text.str();
    }

    static void ExpectSoundSelection(const DigitDocument& document) {
        const std::string selection = Selection(document);
        const bool wave(document.WaveSelection), list(document.ListSelection);
        ASSERT_TRUE(!(wave && list) && bool(document.ValueEnabled) == (wave || list)) << selection;
        ASSERT_EQ(selection.size() > 4, wave || list) << selection;
        ASSERT_TRUE(list || selection.find('+') == std::string::npos) << selection;
        ASSERT_TRUE(document.ListDrag || document.ListDropNode == -1) << document.ListDropNode;
        ASSERT_LE(document.ListDropNode, document.NodeCount);
    }
    /// Bits behind a node's data are 0, as those of free channels.
    static void ExpectSoundSamples(const DigitDocument& document) {
        std::int32_t longest = 0;
        std::vector<std::int32_t> owned(document.DigitSamples.size());  // bits that may be high
        for (const DigitNode& node : document.Nodes) {
            longest = std::max(longest, node.DataLength);
            for (int k = 0; k < node.Width; ++k)
                for (int i = 0; i < node.DataLength; ++i) owned.at(i) |= 1 << node.Channels[k];
        }
        ASSERT_EQ(document.SampleCount, longest);
        ASSERT_EQ(document.DigitSamples.size(), longest);
        for (std::size_t i = 0; i < owned.size(); ++i)
            ASSERT_EQ(document.DigitSamples[i] & ~owned[i], 0) << "behind data or free, dot " << i;
    }
    /// What holds after every command.
    static void ExpectSound(const DigitDocument& document) {
        std::int32_t channels = 0, width = 0;
        std::vector<DigitTarget> rows;
        for (std::int16_t index = 0; const DigitNode& node : document.Nodes) {
            ASSERT_EQ(node.Row, std::ssize(rows));
            rows.push_back({index, -1});
            width += node.Width;
            ASSERT_EQ(bool(node.IsBus), node.Width > 1) << node.Name;
            ASSERT_TRUE(node.Width > 0 && (node.IsBus || !node.Expanded)) << node.Name;
            const bool written = document.Caliper < node.DataLength;
            for (std::int16_t k = 0; k < node.Width; ++k) {
                if (node.Expanded) rows.push_back({index, k});
                ASSERT_FALSE(channels >> node.Channels[k] & 1) << "a channel with two owners";
                channels |= 1 << node.Channels[k];
                const std::int32_t word = written ? document.DigitSamples.at(document.Caliper) : 0;
                ASSERT_EQ(node.MemberValues[k], word >> node.Channels[k] & 1) << node.Name << k;
            }
            ++index;
        }
        ASSERT_EQ(document.ListRows, rows);
        ASSERT_TRUE(document.NodeCount == document.Nodes.size() && document.ChannelCount == width);
        ASSERT_LE(document.FirstRow, std::max<int>(int(rows.size()) - document.PageRows, 0));
        ASSERT_LT(std::uint32_t(document.Caliper), document.Dots);
        ExpectSoundSamples(document);
        ExpectSoundSelection(document);
    }

    std::vector<std::string> asked;  // texts of message boxes, names of dialogs and menus
    Answer answer = Answer::Ok;      // to each message
    std::function<bool()> dialog = [] { return false; };
    const Host silent = TheHost();  // before the test
};
