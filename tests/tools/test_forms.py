"""The check of forms on a good form, and on the same form spoilt in one place."""

from check_case import CheckCase

GOOD = """<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0">
 <class>top</class>
 <widget class="QDialog" name="top">
  <property name="geometry"><rect><x>0</x><y>0</y><width>400</width><height>300</height></rect></property>
  <layout class="QFormLayout" name="form">
   <item><widget class="QLabel" name="Label1"><property name="text"><string>名前(&amp;N)</string></property>
    <property name="buddy"><cstring>Text1</cstring></property></widget></item>
   <item><widget class="QLineEdit" name="Text1"/></item>
   <item><widget class="ListView" name="ListView1">
    <property name="accessibleName"><string>顧客</string></property></widget></item>
   <item><widget class="QPushButton" name="Command1">
    <property name="text"><string>登録</string></property></widget></item>
  </layout>
 </widget>
 <customwidgets><customwidget><class>ListView</class><extends>QTreeView</extends></customwidget></customwidgets>
 <tabstops><tabstop>Text1</tabstop><tabstop>ListView1</tabstop><tabstop>Command1</tabstop></tabstops>
</ui>
"""

SPOILT = [
    ("<class>top</class>", "<class>menu</class>", "3: the class is menu"),
    ('"QDialog" name="top"', '"QDialog" name="Form"', "4: the form itself is named Form"),
    ('name="Command1"', 'name="Text1"', "12: the name Text1 stands twice"),
    ("<cstring>Text1</cstring>", "<cstring>Text2</cstring>",
     "7: Label1 has the buddy Text2, which is not there"),
    ('    <property name="accessibleName"><string>顧客</string></property>', "",
     "10: ListView1 has neither a label"),
    ('    <property name="text"><string>登録</string></property>', "",
     "12: Command1 has neither a text"),
    ("<tabstop>ListView1</tabstop>", "", "10: ListView1 is not in the tab order"),
    ('name="Text1"/>', 'name="Text1"><property name="geometry"><rect/></property></widget>',
     "9: Text1 has a fixed place"),
    ("</ui>", "", "19: is not well-formed"),
]


class Forms(CheckCase):
    def test_forms(self):
        self.expect("forms", "src/core/screens/top.ui", GOOD, None)
        for right, wrong, finding in SPOILT:
            self.assertIn(right, GOOD)
            self.expect("forms", "src/core/screens/top.ui", GOOD.replace(right, wrong, 1), finding)
