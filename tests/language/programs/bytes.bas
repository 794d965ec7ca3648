' Memory blocks.
Dim m As New MemoryBlock(4)
m.Byte(3) = &h141
Print m.Byte(0), m.Byte(3), m.Size '> 0 65 4
m.Size = 6
Print m.Byte(3), m.Byte(5), m.Size '> 65 0 6
m.Int16Value(0) = -2
Print m.Int16Value(0), m.UInt16Value(0) '> -2 65534
m.LittleEndian = False
Print m.UInt16Value(0) '> 65279
m.SingleValue(0) = 0.5
Print m.SingleValue(0), m.Byte(0) '> 0.5 63
m.StringValue(1, 4) = "abc"
Try
  m.StringValue(0, 2) = "abc"
Catch e As OutOfBoundsException
  Print e.Message '> A text of 3 bytes does not fit into 2.
End Try
m.StringValue(0, 2) = "ab"
Print m.StringValue(0, 4), m.Byte(4) '> abbc 0
Dim f As New FolderItem("written by a program")
f.WriteBytes m
Print f.Exists, f.Length, f.ReadBytes.StringValue(0, 4), f.ReadBytes.Size '> True 6 abbc 6
f.Delete
Print f.Exists, f.Name '> False written by a program
