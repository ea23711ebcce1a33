// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINID_H
#define BRIMVALE_PLUGINID_H

#include <QString>

namespace Brimvale
{

/// The identity of a plug-in and the services that it asks for. Filled by `PluginBase::FillPluginId()` of
/// the concrete plug-in and returned by value from `IPlugin::GetId()`. The order of the members is part of
/// the binary contract.
struct PluginId
{
    QString identifier; ///< identifies the plug-in, for example in the log line of its end
    QString
        kind; ///< kind of plug-in: "plugin", "addon" or "control"; a control application takes over the terminal
    QString name;  ///< display name; `IPlugin::GetId()` overwrites it with the current `GetPluginName(true)`
    QString text1; ///< carried unchanged for the host
    QString text2; ///< carried unchanged for the host
    QString text3; ///< carried unchanged for the host
    QString protocolName; ///< title of the plug-in's protocol menu
    int addonNumber = 0;  ///< number under which the host keeps the plug-in's add-ons and actions
    int parentNumber =
        0; ///< 0: the plug-in provides the info section; otherwise the number of the plug-in that does
    bool hasProtocol = false;  ///< the plug-in has print items and a protocol menu
    bool protocolFlag = false; ///< handed to the host's protocol-menu factory
    bool flag1 = false;        ///< carried unchanged for the host
    bool flag2 = false;        ///< carried unchanged for the host
    bool flag3 = false;        ///< carried unchanged for the host
    bool flag4 = false;        ///< carried unchanged for the host
    bool flag5 = false;        ///< carried unchanged for the host
    bool checkPrintOnClose =
        false;                 ///< the state of the print button is worked out from the outputs at the end
    bool resetOnStart = false; ///< start with a reset workflow manager and an emptied action bar
    bool usesCalibrationService = false; ///< show the calibration warning
    bool usesLevellingService = false;   ///< show the levelling warning
    bool hasAddons = false;              ///< the plug-in starts add-ons
    bool flag6 = false;                  ///< carried unchanged for the host
    bool flag7 = false;                  ///< carried unchanged for the host
    bool flag8 = false;                  ///< carried unchanged for the host
    bool transferFlag = false;           ///< handed to the host's measurement transfer at the start
};

} // namespace Brimvale

#endif
