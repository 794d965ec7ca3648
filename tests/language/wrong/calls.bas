' Calls that match no declaration.

Dim p As @New Probe("a")
'! New Probe cannot be called with (String). Declared:
'|     Constructor(number as integer)
'|     Constructor(c as color)
'|     Constructor(a as double, b as double, factor as double = 1.0)

Print @Len()
'! Len cannot be called without arguments: text is missing. Declared:
'|     Len(text as string) as integer

Dim i As Integer, d As Double
Probe.make(1).@split i, d
'! Probe.split cannot be called with (Integer, Double): argument 1 must be a variable of type Double. Declared:
'|     split(byref whole as double, byref half as double)
'|     split(byref whole as double, byref half as double, byref third as double)

Dim d As Double
Probe.make(1).@split d, 0.5
'! Probe.split cannot be called with (Double, Double): argument 2 must be a variable of type Double. Declared:
'|     split(byref whole as double, byref half as double)
'|     split(byref whole as double, byref half as double, byref third as double)

Dim v() As Integer
v.@Insert 1
'! 'Insert' takes an index and an element

Sub A(n As Integer)
End Sub
@A "x"
Print @A(1)
'! A cannot be called with (String). Declared:
'|     A(n As Integer)
'! this call returns no value

Sub A(ByRef n As Integer)
End Sub
@A 1
'! A cannot be called with (Integer): argument 1 must be a variable of type Integer. Declared:
'|     A(ByRef n As Integer)

Sub A(n As Integer = 1, @m As Integer)
End Sub
Sub B(ParamArray v As Integer, @n As Integer)
End Sub
'! a parameter after one with a default needs a default too
'! nothing can follow a ParamArray

Sub A()
@Exit Function
@Continue
Return @1
End Sub
@Exit For
'! this is not inside a Function
'! this is not inside a loop
'! only a Function returns a value
'! this is not inside a For loop

Function F() As Integer
@Return
End Function
'! a Function returns a value

