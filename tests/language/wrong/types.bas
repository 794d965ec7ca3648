' Values of the wrong type.

Dim s As String
s = @1
'! this is of type Integer, but String is needed here; 'String(...)' converts it

Dim p As Probe = @New MemoryBlock(1)
'! this is of type MemoryBlock, but Probe is needed here

If @1 Then Print 1
'! this is of type Integer, but Boolean is needed here

Dim c As Color = @0.5
'! this is of type Double, but Color is needed here

Raise @"x"
'! this is of type String, but RuntimeException is needed here

Dim v() As Integer = Array(1, @"a")
'! this is of type String, but Integer is needed here; 'Integer(...)' converts it

Dim p As Probe
Print p @Is 1
'! 'Is' compares objects, not Probe and Integer

Print True @< False
'! '<' cannot be applied to Boolean and Boolean

Select Case 1
Case @"x"
End Select
'! '=' cannot be applied to Integer and String

Dim v() As Double
Print v.@Append(1)
'! this call returns no value

Dim p As New Probe(1)
p.@description
'! this value is not used

Dim p As New Probe(1)
p.@description = "x"
'! the property 'description' of Probe is read-only

Probe.@kAnswer = 1
'! this cannot be assigned to: 'kAnswer' is a constant of Probe

Const C = 1
@C = 2
'! this cannot be assigned to: 'C' is a constant, declared on line 1

Dim i As Integer
Const C = i @+ 1
Print C
'! this value may contain only literals, constants and functions that only compute

Const D = @Len(Input)
Function F() As Integer
  Return 1
End Function
Const G = @F
Const H = @Chr(-1)
'! this value may contain only literals, constants and functions that only compute
'! this value may contain only literals, constants and functions that only compute
'! There is no character with the number -1.

Const C = 1 @\ 0
'! Division by zero.

Dim i As Integer
Print @i(0)
'! this is of type Integer; only an array has elements

Dim v(@3) As Double = Nil
'! an array that gets a value takes its bound from the value

For @s As String = 1 To 2
Next
'! a For loop counts an Integer or a Double, not a String

For Each i As Integer In @3
Next
'! this is of type Integer, not an array

Print Probe(@New MemoryBlock(1))
'! this is of type MemoryBlock and can never be a Probe

	Print "äö	€" @+ 1
'! '+' cannot be applied to String and Integer; '&' joins values of any type


Dim a = @Nil
a = 1
'! Nil has no type: write 'As' and the type of the variable

Dim a, @b = 2
'! variables with a common value need a type: 'As' is expected

Dim s As String = "a"
s -= @1
'! '-' cannot be applied to String and Integer

Dim probes() As Probe
probes.@Sort
'! elements of type Probe have no order

Dim n() As Integer
n.@Slice()
'! 'Slice' takes an index and, perhaps, a count

Print If(1 = 1, 2@)
'! ',' and the other value is expected here, not ')'

Dim grid(2)@(3) As Integer
Dim other(2@, 3) As Integer
Sub F(v() As @Integer())
End Sub
'! an array has one dimension; the elements of a Variant() can be arrays
'! an array has one dimension; the elements of a Variant() can be arrays
'! an array has one dimension; the elements of a Variant() can be arrays

Dim v As Variant, w() As Variant
Print v @+ 1
Print w(0) @>= "a"
Print v @And w(1)
Print @-v
Print 0.5 @* v
Print @Not v
'! '+' cannot be applied to Variant and Integer; convert the Variant first, as in Integer(value)
'! '>=' cannot be applied to Variant and String; convert the Variant first, as in String(value)
'! 'And' cannot be applied to Variant and Variant; convert the Variant first, as in Boolean(value)
'! '-' cannot be applied to Variant; convert the Variant first, as in Integer(value)
'! '*' cannot be applied to Double and Variant; convert the Variant first, as in Double(value)
'! 'Not' cannot be applied to Variant; convert the Variant first, as in Boolean(value)

