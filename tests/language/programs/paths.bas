' A folder item returns its path in every form.
Dim f As New FolderItem("/a b/../c d/é%.icc")
Print f.NativePath, f.URLPath, f.Name '> /c d/é%.icc file:///c%20d/%C3%A9%25.icc é%.icc
