<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: BSD-3-Clause -->
<TS version="2.1" language="de">
<context>
    <name>WeighingPlugin</name>
    <message>
        <source>Weighing</source>
        <translation>Wägen</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Null</translation>
    </message>
    <message>
        <source>Tare</source>
        <translation>Tara</translation>
    </message>
    <message>
        <source>Clear tare</source>
        <translation>Tara löschen</translation>
    </message>
    <message>
        <source>Stable only</source>
        <translation>Nur stabil</translation>
    </message>
    <message>
        <source>Gross</source>
        <translation>Brutto</translation>
    </message>
    <message>
        <source>Tare weight</source>
        <translation>Taragewicht</translation>
    </message>
    <message>
        <source>Printed</source>
        <translation>Gedruckt</translation>
    </message>
</context>
<context>
    <name>WeighingScreen</name>
    <message>
        <source>Waiting for a stable weight…</source>
        <translation>Warten auf ein stabiles Gewicht…</translation>
    </message>
    <message>
        <source>Printed</source>
        <translation>Gedruckt</translation>
    </message>
    <message>
        <source>Not printed: below the minimum weight</source>
        <translation>Nicht gedruckt: unter dem Mindestgewicht</translation>
    </message>
    <message>
        <source>Not printed: no valid weight</source>
        <translation>Nicht gedruckt: kein gültiges Gewicht</translation>
    </message>
    <message>
        <source>Last print</source>
        <translation>Letzter Druck</translation>
    </message>
    <message>
        <source>Ready to print</source>
        <translation>Druckbereit</translation>
    </message>
    <message>
        <source>Minimum weight</source>
        <translation>Mindestgewicht</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keines</translation>
    </message>
</context>
<context>
    <name>WeighingViewModel</name>
    <message>
        <source>NET</source>
        <translation>NET</translation>
    </message>
    <message>
        <source>PT</source>
        <translation>PT</translation>
    </message>
</context>
</TS>
