
' The checks of every script test in VBScript; they stand behind the script itself.

' Text is escaped: what a console shows of it depends on its code page. Accents are written Chr(),
' in the Western code page, because not every engine has ChrW.
Function Shown(value)
    Dim i, code, text
    If IsObject(value) Then
        If value Is Nothing Then Shown = "Nothing" Else Shown = TypeName(value)
    ElseIf IsNull(value) Or IsEmpty(value) Then
        Shown = TypeName(value)
    ElseIf VarType(value) = vbString Then
        For i = 1 To Len(value)
            code = Asc(Mid(value, i, 1))
            If code >= 32 And code < 127 Then
                text = text & Chr(code)
            Else
                text = text & "{" & Hex(code) & "}"
            End If
        Next
        Shown = """" & text & """"
    ElseIf VarType(value) = vbBoolean Then
        If value Then Shown = "True" Else Shown = "False"
    Else
        Shown = CStr(value)
    End If
End Function

' Texts are the same character by character; numbers whatever their types.
Function IsSame(one, other)
    If VarType(one) = vbString And VarType(other) = vbString Then
        IsSame = StrComp(one, other, 0) = 0
    Else
        IsSame = Shown(one) = Shown(other)
    End If
End Function

Sub Report(name, passed, details)
    If passed Then
        WScript.Echo "ok " & name
    Else
        WScript.Echo "FAILED " & name & ": " & details
    End If
End Sub

Sub Equal(name, actual, expected)
    Report name, IsSame(actual, expected), Shown(actual) & " instead of " & Shown(expected)
End Sub

' The present error has this number; clears it.
Sub Fails(name, number)
    Dim actual
    actual = Err.Number
    Err.Clear
    Report name, actual = number, "error " & Hex(actual) & " instead of " & Hex(number)
End Sub

' The present error is this one in all that a script sees; clears it.
Sub FailsWith(name, number, source, description)
    Dim actual, expected
    actual = Hex(Err.Number) & " " & Err.Source & ": " & Err.Description
    expected = Hex(number) & " " & source & ": " & description
    Err.Clear
    Equal name, actual, expected
End Sub

WScript.Echo "-- end"
