' Operations that raise, and their messages.
Dim none() As Double = Probe.echo(Nil)
Dim p As Probe, v(1) As Double, m As New MemoryBlock(4), most As Integer = 1e300
Dim f As New FolderItem("/no/such/file")
Try : p.Number = 1 : Catch e As RuntimeException : Print e : End Try '> NilObjectException: A member of Nil was used: 'p' is Nil.
Try : Print p.description : Catch e As RuntimeException : Print e : End Try '> NilObjectException: A member of Nil was used: 'p' is Nil.
Try : Print p.successor : Catch e As RuntimeException : Print e : End Try '> NilObjectException: A member of Nil was used: 'p' is Nil.
Try : Print none(0) : Catch e As RuntimeException : Print e : End Try '> NilObjectException: An array that is Nil was used.
Try : For Each d As Double In none : Next : Catch e As RuntimeException : Print e : End Try '> NilObjectException: An array that is Nil was used.
Try : Dim texts() As String = Nil : Print Join(texts) : Catch e As RuntimeException : Print e : End Try '> NilObjectException: An array that is Nil was used.
Try : Print v(-1) : Catch e As RuntimeException : Print e : End Try '> OutOfBoundsException: The index -1 is outside the range 0 to 1.
Try : v.Insert(3, 5) : Catch e As RuntimeException : Print e : End Try '> OutOfBoundsException: The index 3 is outside the range 0 to 1.
Try : ReDim v(-2) : Catch e As RuntimeException : Print e : End Try '> OutOfBoundsException: An array cannot have the upper bound -2.
Try : Print Chr(&hD800) : Catch e As RuntimeException : Print e : End Try '> OutOfBoundsException: There is no character with the number 55296.
Try : Print Chr(-1) : Catch e As RuntimeException : Print e : End Try '> OutOfBoundsException: There is no character with the number -1.
Try : Print Len(Repeat("abc", 1000000000)) : Catch e As RuntimeException : Print e : End Try '> OutOfMemoryException: A text cannot have more than 256 MB.
Try : For j As Integer = 1 To 2 Step UBound(v) - 1 : Next : Catch e As RuntimeException : Print e : End Try '> RuntimeException: The step of a loop cannot be 0.
Try : p = Probe.echo("text") : Catch e As RuntimeException : Print e : End Try '> TypeMismatchException: The variant holds String, not Probe.
Try : v(0) = Probe.echo("text") : Catch e As RuntimeException : Print e : End Try '> TypeMismatchException: The variant holds String, not Double.
Try : v = Probe.echo(m) : Catch e As RuntimeException : Print e : End Try '> TypeMismatchException: The variant holds MemoryBlock, not Double().
Try : p = Probe.echo(m) : Catch e As RuntimeException : Print e : End Try '> IllegalCastException: The variant holds MemoryBlock, not Probe.
Try : m.Byte(4) = 1 : Catch e As RuntimeException : Print e : End Try '> OutOfBoundsException: 1 bytes from offset 4 are not inside a memory block of 4 bytes.
Try : Print m.Byte(4) : Catch e As RuntimeException : Print e : End Try '> OutOfBoundsException: 1 bytes from offset 4 are not inside a memory block of 4 bytes.
Try : Print m.Byte(-1) : Catch e As RuntimeException : Print e : End Try '> OutOfBoundsException: 1 bytes from offset -1 are not inside a memory block of 4 bytes.
Try : Print m.DoubleValue(0) : Catch e As RuntimeException : Print e : End Try '> OutOfBoundsException: 8 bytes from offset 0 are not inside a memory block of 4 bytes.
Try : Print m.StringValue(1, most) : Catch e As OutOfBoundsException : Print "refused" : End Try '> refused
Try : m.Size = -1 : Catch e As RuntimeException : Print e : End Try '> OutOfBoundsException: A memory block cannot have -1 bytes.
Try : Print f.ReadBytes.Size : Catch e As RuntimeException : Print e : End Try '> IOException 2: "/no/such/file" cannot be read: No such file or directory.
Try : f.Delete : Catch e As RuntimeException : Print e : End Try '> IOException 2: "/no/such/file" cannot be removed: No such file or directory.
Try : f.WriteBytes(m) : Catch e As RuntimeException : Print e : End Try '> IOException 2: "/no/such/file" cannot be written: No such file or directory.
