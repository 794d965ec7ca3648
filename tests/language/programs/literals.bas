' Literals.
Print 0, 12, 0.5, .25, 1.50, 1e3, 2.5E-3, &hFF, &b101, &o17 '> 0 12 0.5 0.25 1.5 1000 0.0025 255 5 15
Print "", "a ""quoted"" word", "ä€😀" '>  a "quoted" word ä€😀
Print #FF8000, #FF800040, #f80, #F804, Hex(#FF800040), &hFF8000 = #FF800000 '> #FF8000 #FF800040 #FF8800 #FF880044 40FF8000 True
Print True, FALSE, nil '> True False Nil
Dim b1 As Integer = 7, h2 As Integer = 8
Print "x"&b1&h2, b1 &h2, &b1 '> x78 78 1
