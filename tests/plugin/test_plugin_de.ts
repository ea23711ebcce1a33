<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: BSD-3-Clause -->
<TS version="2.1" language="de_DE">
<context>
    <name>TestPlugin</name>
    <message>
        <source>Gross weight</source>
        <translation>Bruttogewicht</translation>
    </message>
</context>
</TS>
