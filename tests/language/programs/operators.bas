' Operators.
Print 7 + 2, 7 - 2, 7 * 2, 7 / 2, 7 \ 2, -7 \ 2, 7 Mod 3, -7 Mod 3, 2 ^ 10 '> 9 5 14 3.5 3 -3 1 -1 1024
Print -2 ^ 2, 2 ^ -1, 2 ^ 3 ^ 2, 2 + 3 * 4, (2 + 3) * 4, 10 - 4 - 3, 2 * 7 Mod 4, 1 + 2 & 3 + 4, 7.9 \ 2.9 '> -4 0.5 64 14 20 3 2 37 3
Print Not 1 = 2, 1 < 2 And 2 < 3, True Or False And False, True Xor True Or True '> True True True False
Print 12 And 10, 12 Or 10, 12 Xor 10, Not 0, Not -1 '> 8 14 6 -1 0
Dim v() As Boolean
Print False And v(0), True Or v(0) '> False True
Print 1 < 2, 2 <= 2, 3 > 2.5, 2 >= 3, 1 = 1.0, 1 <> 1, True = False, "a" <> "b" '> True True True False True False False True
Print "Z" < "a", "a" = "A", "a" < "ab", "é" > "z", "abc" + "" = "abc" '> True False True True True
Print "a" & 1 & 0.5 & True & #010203 & Nil & "", "a" + "b" '> a10.5True#010203Nil ab
