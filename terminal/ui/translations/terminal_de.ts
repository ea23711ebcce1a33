<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: BSD-3-Clause -->
<TS version="2.1" language="de_DE" sourcelanguage="en_GB">
<context>
    <name>ActionBar</name>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
</context>
<context>
    <name>ApplicationArea</name>
    <message>
        <source>No application is loaded</source>
        <translation>Keine Anwendung geladen</translation>
    </message>
    <message>
        <source>The terminal weighs on its own. Start it with --plugin PATH to run an application.</source>
        <translation>Das Terminal wägt allein. Mit --plugin PFAD gestartet führt es eine Anwendung aus.</translation>
    </message>
    <message>
        <source>The application&apos;s screen cannot be shown</source>
        <translation>Der Bildschirm der Anwendung kann nicht gezeigt werden</translation>
    </message>
</context>
<context>
    <name>Bench</name>
    <message>
        <source>Bench</source>
        <translation>Werkbank</translation>
    </message>
    <message>
        <source>1 fault</source>
        <translation>1 Fehler</translation>
    </message>
    <message>
        <source>%1 faults</source>
        <translation>%1 Fehler</translation>
    </message>
    <message>
        <source>On the scale</source>
        <translation>Auf der Waage</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Abräumen</translation>
    </message>
    <message>
        <source>The readings come from a real source</source>
        <translation>Die Messwerte kommen von einer echten Quelle</translation>
    </message>
    <message>
        <source>Weights, noise, drift and the cable can be changed on the simulated scale only. Level and calibration can be tried with every source.</source>
        <translation>Gewichte, Rauschen, Drift und Kabel lassen sich nur an der simulierten Waage ändern. Nivellierung und Kalibrierung lassen sich mit jeder Quelle erproben.</translation>
    </message>
    <message>
        <source>Noise</source>
        <translation>Rauschen</translation>
    </message>
    <message>
        <source>Drift</source>
        <translation>Drift</translation>
    </message>
    <message>
        <source>Scale is level</source>
        <translation>Waage steht eben</translation>
    </message>
    <message>
        <source>Scale is tilted</source>
        <translation>Waage steht schief</translation>
    </message>
    <message>
        <source>Drag the bubble</source>
        <translation>Luftblase ziehen</translation>
    </message>
    <message>
        <source>Tilt</source>
        <translation>Kippen</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Nivellieren</translation>
    </message>
    <message>
        <source>Load cell connected</source>
        <translation>Wägezelle verbunden</translation>
    </message>
    <message>
        <source>Calibration due</source>
        <translation>Kalibrierung fällig</translation>
    </message>
    <message>
        <source>Plug-in faults</source>
        <translation>Fehler der Plug-ins</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>MainDisplay</name>
    <message>
        <source>No connection to the scale</source>
        <translation>Keine Verbindung zur Waage</translation>
    </message>
    <message>
        <source>NET</source>
        <translation>NETTO</translation>
    </message>
    <message>
        <source>PT</source>
        <translation>PT</translation>
    </message>
    <message>
        <source>COARSE</source>
        <translation>GROB</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>No application</source>
        <translation>Keine Anwendung</translation>
    </message>
</context>
</TS>
