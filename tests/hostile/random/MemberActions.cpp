// Calls of the control's own members: by its table of functions, and by name and number.
#include <deque>

#include "hostile/random/Actions.h"
#include "hostile/random/RandomObject.h"
#include "hostile/random/RandomVariant.h"

namespace vantik {

namespace {

// The arguments of one call through the table of functions, and the variables that they refer to.
class TableCall {
public:
    TableCall(World& world, const MemberOfControl& member) : world_(world), member_(member) {
        for (const ParameterOfMember& parameter : member.Parameters) Add(parameter);
    }
    ~TableCall() {
        for (VARIANT& each : variables_) VariantClear(&each);
    }
    TableCall(const TableCall&) = delete;
    TableCall& operator=(const TableCall&) = delete;

    HRESULT Call(::_VantikFrameTab* control) {
        std::vector<VARIANTARG*> pointers;
        for (VARIANTARG& each : arguments_) pointers.push_back(&each);
        VARIANT result;
        VariantInit(&result);
        const HRESULT called =
            DispCallFunc(control, member_.Offset, CC_STDCALL, VT_ERROR, static_cast<UINT>(types_.size()),
                         types_.data(), pointers.data(), &result);
        return FAILED(called) ? called : result.scode;
    }

private:
    void Add(const ParameterOfMember& parameter) {
        VARIANT& variable = variables_.emplace_back(ValueFor(parameter));
        VARIANTARG argument;
        VariantInit(&argument);
        if (parameter.IsPointer) {
            argument.vt = VT_BYREF | VT_I4;
            argument.byref = world_.Draw.OneIn(25) ? nullptr : &variable.llVal;
        } else {
            argument = variable;
        }
        types_.push_back(argument.vt);
        arguments_.push_back(argument);
    }

    VARIANT ValueFor(const ParameterOfMember& parameter) {
        VARIANT value;
        VariantInit(&value);
        value.llVal = 0;
        switch (parameter.Kind) {
        case ParameterKind::Short:
            value.vt = VT_I2;
            value.iVal = world_.Draw.Short();
            break;
        case ParameterKind::Long:
            value.vt = VT_I4;
            value.lVal = world_.Draw.Number();
            break;
        case ParameterKind::Text:
            value.vt = VT_BSTR;
            value.bstrVal = RandomText(world_.Draw);
            break;
        case ParameterKind::Object: // a variable for one starts with none
            value.vt = VT_DISPATCH;
            value.pdispVal = parameter.IsPointer ? nullptr : RandomObject(world_).Copy();
            break;
        }
        return value;
    }

    World& world_;
    const MemberOfControl& member_;
    std::deque<VARIANT> variables_; // which are referred to
    std::deque<VARIANTARG> arguments_;
    std::vector<VARTYPE> types_;
};

const MemberOfControl& AnyMember(World& world) {
    return world.Members()[static_cast<std::size_t>(world.Draw.Below(world.Members().size()))];
}

void CallEarly(World& world, Place& place) {
    const Lent<::_VantikFrameTab> control(world, place);
    const MemberOfControl& member = AnyMember(world);
    world.Log.Note(member.Name + (member.Invocation == INVOKE_PROPERTYGET ? " (get)" : ""));
    TableCall call(world, member);
    world.Log.Result(call.Call(control.Get()));
}

// The arguments of one late call: any number of any type, some of them with names.
struct Arguments {
    explicit Arguments(World& world, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) Values.emplace_back(world);
        for (const RandomVariant& each : Values) Passed.push_back(each.Get());
    }

    std::deque<RandomVariant> Values;
    std::vector<VARIANTARG> Passed;
    std::vector<DISPID> Names;
};

std::size_t CountFor(World& world, const MemberOfControl& member) {
    if (world.Draw.OneIn(6)) return static_cast<std::size_t>(world.Draw.Below(9));
    const bool hasResult = member.Invocation == INVOKE_PROPERTYGET;
    return member.Parameters.size() - (hasResult ? 1 : 0);
}

WORD FlagsFor(World& world, const MemberOfControl& member) {
    static constexpr WORD Any[] = {DISPATCH_METHOD,
                                   DISPATCH_PROPERTYGET,
                                   DISPATCH_PROPERTYPUT,
                                   DISPATCH_PROPERTYPUTREF,
                                   DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                   15,
                                   0,
                                   0xFFFF};
    return world.Draw.OneIn(6) ? world.Draw.Of(Any) : static_cast<WORD>(member.Invocation);
}

void CallLate(World& world, Place& place) {
    const Lent<IDispatch> control(world, place);
    const MemberOfControl& member = AnyMember(world);
    const DISPID id = world.Draw.OneIn(30) ? world.Draw.Number() : member.Id;
    const WORD flags = FlagsFor(world, member);
    Arguments arguments(world, CountFor(world, member));
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) && !world.Draw.OneIn(8))
        arguments.Names.push_back(DISPID_PROPERTYPUT);
    while (world.Draw.OneIn(8)) arguments.Names.push_back(world.Draw.Between(-4, 5));
    // A host may be wrong about the number of its names, but not about where its memory ends.
    const auto names = std::min(arguments.Names.size(), arguments.Passed.size() + 1);
    DISPPARAMS parameters = {arguments.Passed.data(), arguments.Names.data(),
                             static_cast<UINT>(arguments.Passed.size()), static_cast<UINT>(names)};
    VARIANT result;
    VariantInit(&result);
    EXCEPINFO exception = {};
    UINT wrong = 0;
    world.Log.Note("late " + member.Name + " with " + std::to_string(arguments.Passed.size()) + ", flags " +
                   std::to_string(flags));
    world.Log.Result(control->Invoke(
        id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, world.Draw.OneIn(4) ? nullptr : &result,
        world.Draw.OneIn(4) ? nullptr : &exception, world.Draw.OneIn(4) ? nullptr : &wrong));
    VariantClear(&result);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
}

void AskNames(World& world, Place& place) {
    static constexpr const wchar_t* Names[] = {L"TabCount",     L"tabcount",  L"",
                                               L"NoSuchMember", L"InsertTab", L"sCaption"};
    const Lent<IDispatch> control(world, place);
    wchar_t* names[3];
    for (auto& each : names) each = const_cast<wchar_t*>(world.Draw.Of(Names)); // NOLINT: only read
    DISPID ids[3] = {};
    world.Log.Result(
        control->GetIDsOfNames(IID_NULL, names, static_cast<UINT>(world.Draw.Between(1, 3)), 0, ids));
    ComPtr<ITypeInfo> info;
    UINT count = 0;
    control->GetTypeInfoCount(&count);
    world.Log.Result(control->GetTypeInfo(static_cast<UINT>(world.Draw.Below(2)), 0, info.Put()));
}

// A form that is in its right mind has tabs, of which some do not fit.
void MakeUsable(World& world, Place& place) {
    const auto control = place.Control.As<::_VantikFrameTab>();
    control->put_BarWidth(static_cast<short>(world.Draw.Between(20, 80)));
    control->put_TabCount(static_cast<short>(world.Draw.Between(2, 12)));
    control->put_DelButton(world.Draw.OneIn(2) ? VARIANT_TRUE : VARIANT_FALSE);
    control->put_ActiveTab(0);
}

void SetIcon(World& world, Place& place) {
    const Lent<::_VantikFrameTab> control(world, place);
    short index = static_cast<short>(world.Draw.Below(5));
    BSTR key = SysAllocString(world.Draw.OneIn(3) ? L"moon" : L"sun");
    world.Log.Result(control->SetBarIco(&index, &key));
    SysFreeString(key);
}

constexpr Action All[] = {{"early", 24, CallEarly},
                          {"late", 24, CallLate},
                          {"names", 1, AskNames},
                          {"make usable", 4, MakeUsable},
                          {"icon", 3, SetIcon}};

} // namespace

Actions MemberActions() noexcept { return All; }

} // namespace vantik
