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
    <message>
        <source>Print-outs</source>
        <translation>Ausdrucke</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatik</translation>
    </message>
</context>
<context>
    <name>WeighingProtocol</name>
    <message>
        <source>Weighing</source>
        <translation>Wägen</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Weighing record</source>
        <translation>Wägeprotokoll</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Ort</translation>
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
        <source>Net</source>
        <translation>Netto</translation>
    </message>
    <message>
        <source>Capacity</source>
        <translation>Höchstlast</translation>
    </message>
    <message>
        <source>Measurement</source>
        <translation>Messung</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Unterschrift</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Taring</source>
        <translation>Tarieren</translation>
    </message>
    <message>
        <source>Weighing no.</source>
        <translation>Wägung Nr.</translation>
    </message>
    <message>
        <source>Previous weighing</source>
        <translation>Vorige Wägung</translation>
    </message>
    <message>
        <source>Minimum weight</source>
        <translation>Mindestgewicht</translation>
    </message>
    <message>
        <source>d</source>
        <translation>d</translation>
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
    <message>
        <source>Automatic is off: its threshold does not suit this scale</source>
        <translation>Automatik ist aus: Ihre Schwelle passt nicht zu dieser Waage</translation>
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
