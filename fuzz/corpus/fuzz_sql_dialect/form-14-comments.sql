SELECT /* TOP 1 */ Len -- (x)
(Description) FROM Item WHERE [Len] = "left"