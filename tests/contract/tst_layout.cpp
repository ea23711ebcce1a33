// SPDX-License-Identifier: BSD-3-Clause

#include "ActionBaseToggle.h"
#include "Error.h"
#include "IActionToggle.h"
#include "IProfileAccess.h"
#include "MenuListBase.h"
#include "MesswertData.h"
#include "MesswertInfo.h"
#include "PluginBase.h"
#include "ProjectException.h"
#include "SettingsProfile.h"
#include "WarnInfo.h"

#include <QVector>
#include <QtTest>

#include <cstring>
#include <type_traits>

using namespace Brimvale;

// The members of each class in their order. Plug-ins that are already built hold objects of these classes, derive
// from them and reach public and protected members by offset.

#define MESSWERTDATA_MEMBERS(M, C)                                                                           \
    M(C, QString, messwert)                                                                                  \
    M(C, QString, unit)                                                                                      \
    M(C, QString, unitPrintName)                                                                             \
    M(C, QString, errorText)                                                                                 \
    M(C, int, stabilityValue)                                                                                \
    M(C, int, rangeNumber)                                                                                   \
    M(C, int, eichDigit)                                                                                     \
    M(C, int, decimals)                                                                                      \
    M(C, int, resolutionReduction)                                                                           \
    M(C, double, value)                                                                                      \
    M(C, double, tareValue)                                                                                  \
    M(C, bool, isValid)                                                                                      \
    M(C, bool, isCalculated)                                                                                 \
    M(C, bool, isStable)                                                                                     \
    M(C, bool, net)                                                                                          \
    M(C, bool, isPresetTare)                                                                                 \
    M(C, bool, isGrobRange)                                                                                  \
    M(C, bool, isOverload)                                                                                   \
    M(C, int, registerNumber)

#define ERROR_MEMBERS(M, C)                                                                                  \
    M(C, Error::ErrorSources, source)                                                                        \
    M(C, qint32, code)                                                                                       \
    M(C, qint32, detail)                                                                                     \
    M(C, Error::ErrorTypes, type)                                                                            \
    M(C, bool, flag)                                                                                         \
    M(C, qint32, reserved1)                                                                                  \
    M(C, qint32, reserved2)                                                                                  \
    M(C, qint32, reserved3)

#define PROJECTEXCEPTION_MEMBERS(M, C) M(C, QString, m_message)

#define PLUGINID_MEMBERS(M, C)                                                                               \
    M(C, QString, identifier)                                                                                \
    M(C, QString, kind)                                                                                      \
    M(C, QString, name)                                                                                      \
    M(C, QString, text1)                                                                                     \
    M(C, QString, text2)                                                                                     \
    M(C, QString, text3)                                                                                     \
    M(C, QString, protocolName)                                                                              \
    M(C, int, addonNumber)                                                                                   \
    M(C, int, parentNumber)                                                                                  \
    M(C, bool, hasProtocol)                                                                                  \
    M(C, bool, protocolFlag)                                                                                 \
    M(C, bool, flag1)                                                                                        \
    M(C, bool, flag2)                                                                                        \
    M(C, bool, flag3)                                                                                        \
    M(C, bool, flag4)                                                                                        \
    M(C, bool, flag5)                                                                                        \
    M(C, bool, checkPrintOnClose)                                                                            \
    M(C, bool, resetOnStart)                                                                                 \
    M(C, bool, usesCalibrationService)                                                                       \
    M(C, bool, usesLevellingService)                                                                         \
    M(C, bool, hasAddons)                                                                                    \
    M(C, bool, flag6)                                                                                        \
    M(C, bool, flag7)                                                                                        \
    M(C, bool, flag8)                                                                                        \
    M(C, bool, transferFlag)

#define MESSWERTINFO_MEMBERS(M, C)                                                                           \
    M(C, QString, m_messwert)                                                                                \
    M(C, QString, m_unit)                                                                                    \
    M(C, bool, m_messwertVisible)                                                                            \
    M(C, int, m_eichDigit)                                                                                   \
    M(C, bool, m_isValid)                                                                                    \
    M(C, bool, m_isCalculated)                                                                               \
    M(C, bool, m_isGrobRange)                                                                                \
    M(C, int, m_resolutionReduction)                                                                         \
    M(C, QString, m_messwertKlein)                                                                           \
    M(C, QString, m_unitKlein)                                                                               \
    M(C, bool, m_messwertKleinVisible)                                                                       \
    M(C, int, m_eichDigitKlein)                                                                              \
    M(C, bool, m_isValidKlein)                                                                               \
    M(C, bool, m_isGrobRangeKlein)                                                                           \
    M(C, int, m_resolutionReductionKlein)                                                                    \
    M(C, QString, m_netText)                                                                                 \
    M(C, QString, m_ptText)                                                                                  \
    M(C, QString, m_errorText)                                                                               \
    M(C, int, m_bargraphValue)                                                                               \
    M(C, int, m_stabilityValue)                                                                              \
    M(C, bool, m_netVisible)                                                                                 \
    M(C, bool, m_ptVisible)                                                                                  \
    M(C, bool, m_bargraphVisible)                                                                            \
    M(C, bool, m_stabilityVisible)                                                                           \
    M(C, bool, m_allVisible)

#define ACTIONBASE_MEMBERS(M, C)                                                                             \
    M(C, QPointer<QObject>, m_worker)                                                                        \
    M(C, QMetaMethod, m_workerMethod)                                                                        \
    M(C, QVariant, m_data)                                                                                   \
    M(C, QString, m_name)                                                                                    \
    M(C, bool, m_enabled)                                                                                    \
    M(C, QString, m_uid)                                                                                     \
    M(C, int, m_rank)

#define ACTIONBASETOGGLE_MEMBERS(M, C)                                                                       \
    M(C, int, m_toggleIndex)                                                                                 \
    M(C, int, m_maxToggleIndex)

#define WARNINFO_MEMBERS(M, C)                                                                               \
    M(C, QString, m_levellingRequiredText)                                                                   \
    M(C, QString, m_calibrationRequiredText)                                                                 \
    M(C, bool, m_levellingRequiredVisible)                                                                   \
    M(C, bool, m_calibrationRequiredVisible)

#define SETTINGSPROFILE_MEMBERS(M, C)                                                                        \
    M(C, IProfileAccess*, m_profileAccess)                                                                   \
    M(C, bool, m_applyEnabled)                                                                               \
    M(C, ProfileItems, m_profileItems)

#define MENULISTBASE_MEMBERS(M, C)                                                                           \
    M(C, ISystem*, m_system)                                                                                 \
    M(C, QString, m_menuFilePath)

#define PLUGINBASE_MEMBERS(M, C)                                                                             \
    M(C, ISystem*, m_system)                                                                                 \
    M(C, IView*, m_view)                                                                                     \
    M(C, IMenuList*, m_pluginMenu)                                                                           \
    M(C, IMenuList*, m_protocolMenu)                                                                         \
    M(C, SettingsProfile*, m_settingsProfile)                                                                \
    M(C, IMenuList*, m_menuList)                                                                             \
    M(C, IInfobox*, m_infobox)                                                                               \
    M(C, IWeighingParameters*, m_weighingParameters)                                                         \
    M(C, PluginId, m_id)                                                                                     \
    M(C, QObject*, m_pluginObject)                                                                           \
    M(C, QObject*, m_viewModel)                                                                              \
    M(C, IPluginViewManager*, m_viewManager)                                                                 \
    M(C, void*, m_spare)                                                                                     \
    M(C, QString, m_version)                                                                                 \
    M(C, QMetaMethod, m_warnInfoMethod)                                                                      \
    M(C, bool, m_started)                                                                                    \
    M(C, bool, m_printRequested)

namespace
{

using ProfileItems = QMap<int, QVariant>;

struct Member
{
    const char* name;
    std::size_t offset;
    std::size_t size;
    std::size_t alignment;
};

template <typename Class, typename Type>
Member describe(const char* name, Type Class::*member)
{
    // A pointer to a data member is the member's offset.
    std::size_t offset = 0;
    static_assert(sizeof member == sizeof offset, "not the C++ ABI of the terminal");
    std::memcpy(&offset, &member, sizeof offset);
    return {name, offset, sizeof(Type), alignof(Type)};
}

// An explicit instantiation may name private members: it hands out a pointer to one.
template <typename Tag, typename Tag::Pointer pointer>
struct Access
{
    friend typename Tag::Pointer memberOf(Tag) { return pointer; }
};

#define GRANT(Class, Type, member)                                                                           \
    struct Class##_##member                                                                                  \
    {                                                                                                        \
        using Pointer = Type Class::*;                                                                       \
        friend Pointer memberOf(Class##_##member);                                                           \
    };                                                                                                       \
    template struct Access<Class##_##member, &Class::member>;
#define LIST(Class, Type, member) describe(#member, memberOf(Class##_##member())),

#define MEMBERS(MACRO, Class, function)                                                                      \
    MACRO(GRANT, Class)                                                                                      \
    QVector<Member> function()                                                                               \
    {                                                                                                        \
        return {MACRO(LIST, Class)};                                                                         \
    }

MEMBERS(MESSWERTDATA_MEMBERS, MesswertData, messwertData)
MEMBERS(ERROR_MEMBERS, Error, error)
MEMBERS(PROJECTEXCEPTION_MEMBERS, ProjectException, projectException)
MEMBERS(PLUGINID_MEMBERS, PluginId, pluginId)
MEMBERS(MESSWERTINFO_MEMBERS, MesswertInfo, messwertInfo)
MEMBERS(ACTIONBASE_MEMBERS, ActionBase, actionBase)
MEMBERS(ACTIONBASETOGGLE_MEMBERS, ActionBaseToggle, actionBaseToggle)
MEMBERS(WARNINFO_MEMBERS, WarnInfo, warnInfo)
MEMBERS(SETTINGSPROFILE_MEMBERS, SettingsProfile, settingsProfile)
MEMBERS(MENULISTBASE_MEMBERS, MenuListBase, menuListBase)
MEMBERS(PLUGINBASE_MEMBERS, PluginBase, pluginBase)

// The bases of an object of the library, in their order.
struct ObjectWithInterface
{
    QObject object;
    void* interface;
};

} // namespace

Q_DECLARE_METATYPE(Member)

class TestLayout : public QObject
{
    Q_OBJECT

private slots:
    void membersFollowEachOther_data();
    void membersFollowEachOther();
#if QT_POINTER_SIZE == 8
    void offsetsOn64BitMachines_data();
    void offsetsOn64BitMachines();
#endif
    void recordsStayPlain();
};

void TestLayout::membersFollowEachOther_data()
{
    QTest::addColumn<QVector<Member>>("members");
    QTest::addColumn<int>("begin"); // end of the bases and of the pointer to the table of virtual operations
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("alignment");

    const int pointer = sizeof(void*);
    QTest::newRow("MesswertData") << messwertData() << pointer << int(sizeof(MesswertData))
                                  << int(alignof(MesswertData));
    QTest::newRow("Error") << error() << 0 << int(sizeof(Error)) << int(alignof(Error));
    QTest::newRow("ProjectException") << projectException() << int(sizeof(QException))
                                      << int(sizeof(ProjectException)) << int(alignof(ProjectException));
    QTest::newRow("PluginId") << pluginId() << 0 << int(sizeof(PluginId)) << int(alignof(PluginId));
    QTest::newRow("MesswertInfo") << messwertInfo() << int(sizeof(QObject)) << int(sizeof(MesswertInfo))
                                  << int(alignof(MesswertInfo));
    QTest::newRow("ActionBase") << actionBase() << int(sizeof(ObjectWithInterface)) << int(sizeof(ActionBase))
                                << int(alignof(ActionBase));
    QTest::newRow("ActionBaseToggle") << actionBaseToggle() << int(sizeof(ActionBase) + sizeof(IActionToggle))
                                      << int(sizeof(ActionBaseToggle)) << int(alignof(ActionBaseToggle));
    QTest::newRow("WarnInfo") << warnInfo() << int(sizeof(QObject)) << int(sizeof(WarnInfo))
                              << int(alignof(WarnInfo));
    QTest::newRow("SettingsProfile") << settingsProfile() << pointer << int(sizeof(SettingsProfile))
                                     << int(alignof(SettingsProfile));
    QTest::newRow("MenuListBase") << menuListBase() << int(sizeof(ObjectWithInterface))
                                  << int(sizeof(MenuListBase)) << int(alignof(MenuListBase));
    QTest::newRow("PluginBase") << pluginBase() << int(sizeof(ObjectWithInterface)) << int(sizeof(PluginBase))
                                << int(alignof(PluginBase));
}

// In the order of the list, each at the next place that suits its type, and nothing behind the last: on any machine.
void TestLayout::membersFollowEachOther()
{
    QFETCH(QVector<Member>, members);
    QFETCH(int, begin);
    QFETCH(int, size);
    QFETCH(int, alignment);

    std::size_t end = begin;
    for (const Member& member : members) {
        const std::size_t place = (end + member.alignment - 1) / member.alignment * member.alignment;
        QVERIFY2(member.offset == place, qPrintable(QStringLiteral("%1 is at %2, its place is %3")
                                                        .arg(QLatin1String(member.name))
                                                        .arg(member.offset)
                                                        .arg(place)));
        end = place + member.size;
    }
    QCOMPARE(size, (int(end) + alignment - 1) / alignment * alignment);
}

#if QT_POINTER_SIZE == 8
void TestLayout::offsetsOn64BitMachines_data()
{
    QTest::addColumn<QVector<Member>>("members");
    QTest::addColumn<QVector<int>>("offsets");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("expectedSize");

    const auto row = [](const char* name, const QVector<Member>& members, std::size_t size,
                        const QVector<int>& offsets, int expectedSize) {
        QTest::newRow(name) << members << offsets << int(size) << expectedSize;
    };
    row("MesswertData", messwertData(), sizeof(MesswertData),
        {8, 16, 24, 32, 40, 44, 48, 52, 56, 64, 72, 80, 81, 82, 83, 84, 85, 86, 88}, 96);
    row("Error", error(), sizeof(Error), {0, 4, 8, 12, 16, 20, 24, 28}, 32);
    row("ProjectException", projectException(), sizeof(ProjectException), {8}, 16);
    row("PluginId", pluginId(), sizeof(PluginId),
        {0, 8, 16, 24, 32, 40, 48, 56, 60, 64, 65, 66, 67, 68, 69, 70, 71, 72, 73, 74, 75, 76, 77, 78, 79},
        80);
    row("MesswertInfo", messwertInfo(), sizeof(MesswertInfo),
        {16, 24, 32, 36, 40, 41,  42,  44,  48,  56,  64,  68, 72,
         73, 76, 80, 88, 96, 104, 108, 112, 113, 114, 115, 116},
        120);
    row("ActionBase", actionBase(), sizeof(ActionBase), {24, 40, 56, 72, 80, 88, 96}, 104);
    row("ActionBaseToggle", actionBaseToggle(), sizeof(ActionBaseToggle), {112, 116}, 120);
    row("WarnInfo", warnInfo(), sizeof(WarnInfo), {16, 24, 32, 33}, 40);
    row("SettingsProfile", settingsProfile(), sizeof(SettingsProfile), {8, 16, 24}, 32);
    row("MenuListBase", menuListBase(), sizeof(MenuListBase), {24, 32}, 40);
    row("PluginBase", pluginBase(), sizeof(PluginBase),
        {24, 32, 40, 48, 56, 64, 72, 80, 88, 168, 176, 184, 192, 200, 208, 224, 225}, 232);
}

void TestLayout::offsetsOn64BitMachines()
{
    QFETCH(QVector<Member>, members);
    QFETCH(int, size);
    QVector<int> found;
    for (const Member& member : members)
        found.append(int(member.offset));
    QTEST(found, "offsets");
    QTEST(size, "expectedSize");
}
#endif

void TestLayout::recordsStayPlain()
{
    QVERIFY(std::is_trivially_copyable<Error>::value);
    QVERIFY(!std::is_polymorphic<Error>::value);
    QVERIFY(!std::is_polymorphic<PluginId>::value);
    QVERIFY(std::is_polymorphic<MesswertData>::value);
    QVERIFY(std::has_virtual_destructor<MesswertData>::value);
    QVERIFY(std::has_virtual_destructor<SettingsProfile>::value);
}

QTEST_APPLESS_MAIN(TestLayout)
#include "tst_layout.moc"
